#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vornix::tool {

// Bytes as lower-case hex digits, two per byte, no spaces.
std::string toHex(std::span<const std::uint8_t> bytes);

// Hex digits in either case, with spaces allowed anywhere; throws std::invalid_argument
// naming the first thing that is not hex, or an odd number of digits.
std::vector<std::uint8_t> fromHex(std::string_view text);

}  // namespace vornix::tool
