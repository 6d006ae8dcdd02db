#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "plist/Value.hpp"

namespace vornix::plist {

// Standard base64 (RFC 4648 alphabet, '=' padding), unwrapped.
std::string base64Encode(const Data& bytes);
std::string base64Encode(const std::uint8_t* bytes, std::size_t size);

// Reads base64, skipping XML white space anywhere; padding may be left out. Nothing when a
// character is outside the alphabet, padding is misplaced or the length cannot be base64.
std::optional<Data> base64Decode(std::string_view text);

}  // namespace vornix::plist
