#pragma once

#include <cstdlib>
#include <string>

#include "plist/EncodingError.hpp"
#include "plist/Value.hpp"
#include "plist/XmlReader.hpp"
#include "plist/XmlWriter.hpp"

namespace vornix::plist::fuzz {

// A value that was read must write to XML that reads back and writes again to the same bytes
// (bytes, not values, so that NaN compares equal); anything else is a bug worth a crash.
inline void checkRoundTrip(const Value& value) {
    std::string xml;
    try {
        xml = writeXml(value);
    } catch (const EncodingError&) {
        return;  // strings the XML format cannot carry, e.g. a control character from a binary list
    }
    if (writeXml(readXml(xml)) != xml) {
        std::abort();
    }
}

}  // namespace vornix::plist::fuzz
