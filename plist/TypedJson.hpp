#pragma once

#include <string>
#include <string_view>

#include "plist/Value.hpp"

namespace vornix::plist {

// The typed JSON form of a property list: one object per value, whose one member names the
// kind and holds the content in a form JSON keeps exactly:
//     {"string": "..."}   {"integer": "-5"} (decimal text)   {"real": "0.5"} (shortest text)
//     {"bool": true}      {"date": "2024-01-31T12:00:00Z"}   {"data": "<base64>"}
//     {"array": [ ... ]}  {"dict": {"key": value, ...}} (keys in byte order)
// A date with a fraction of a second carries it exactly ("...T12:00:00.25Z").

// Pretty-printed, two-space indents, with a final line end. Throws EncodingError for a date
// outside the years 0000 to 9999 and a string that is not UTF-8.
std::string writeTypedJson(const Value& value);

// Throws DataCorrupted for text that is not JSON (with its position) or not the typed form
// (with the path of the value at fault).
Value readTypedJson(std::string_view text);

}  // namespace vornix::plist
