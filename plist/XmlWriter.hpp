#pragma once

#include <string>

#include "plist/Value.hpp"

namespace vornix::plist {

// The XML form of a property list, byte for byte as the platform's writers make it: the XML
// declaration and DOCTYPE, <plist version="1.0">, one element per line indented by tabs, keys
// in byte order, <true/> and <false/>, <array/> and <dict/> when empty, '&', '<' and '>'
// escaped, data in base64 lines that narrow with depth, dates in whole seconds. A carriage
// return is written as "&#13;" so that it survives XML's line-end rule. Throws EncodingError
// for a string that is not UTF-8 or holds a character XML cannot carry, and for a date the
// format cannot write.
std::string writeXml(const Value& value);

}  // namespace vornix::plist
