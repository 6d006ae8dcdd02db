#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "plist/DecodingError.hpp"
#include "plist/EncodingError.hpp"
#include "plist/Value.hpp"
#include "plist/XmlReader.hpp"
#include "plist/XmlWriter.hpp"

namespace vornix::plist::fuzz {

// Reads the input with `read`. Bad input must end in a DecodingError; a value that was read
// must write to XML that reads back and writes again to the same bytes (bytes, not values, so
// that NaN compares equal). Anything else is a bug worth a crash.
template <class Read>
void readAndRoundTrip(Read read, const std::uint8_t* data, std::size_t size) {
    Value value;
    try {
        value = read(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const DecodingError&) {
        return;
    }
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
