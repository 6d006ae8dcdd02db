#pragma once

// The top-level entry points: typed values to XML property-list bytes and back.
//
//     std::string bytes = plist::encode(*agent);                 // a record, or a Value
//     auto agent = plist::decode<std::shared_ptr<LaunchAgent>>(bytes);
//     plist::Value value = plist::decode<plist::Value>(bytes);   // any property list

#include <string>
#include <string_view>

#include "plist/KeyedCoding.hpp"
#include "plist/Value.hpp"
#include "plist/XmlWriter.hpp"

namespace vornix::plist {

// Reads a property list in either format, told apart by its first bytes ("bplist00" is
// binary, anything else is read as XML). Throws DataCorrupted.
Value readPropertyList(std::string_view bytes);

// The XML form of `value`. Throws EncodingError.
template <class T>
std::string encode(const T& value) {
    return writeXml(encodeValue(value));
}

// Reads `bytes` (XML or binary) as a T. Throws one of the DecodingError kinds.
template <class T>
T decode(std::string_view bytes) {
    return decodeValue<T>(readPropertyList(bytes));
}

}  // namespace vornix::plist
