#pragma once

#include <string_view>

#include "plist/Value.hpp"

namespace vornix::plist {

// Reads an XML property list. Accepts what XML allows around the values (white space,
// comments, CDATA sections, character references and the predefined entities, CRLF line ends,
// a byte-order mark, a DOCTYPE, which is never loaded) and <string/> for an empty string;
// the <plist> wrapper may be left out. Integers are decimal with an optional sign or "0x"
// hexadecimal; a repeated dictionary key keeps its last value. Throws DataCorrupted, with the
// line and column, for anything else: malformed XML, an unknown element, a key without a
// value, two values, text where none belongs, an entity declaration, containers nested deeper
// than 512 levels.
Value readXml(std::string_view bytes);

}  // namespace vornix::plist
