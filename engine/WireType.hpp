#pragma once

#include <cstdint>

namespace vornix::engine {

// The type byte in front of every value of the standard message format. 5 was once a large
// integer sent as text; neither side sends it any more, so it reads as an unknown type.
namespace wire {
inline constexpr std::uint8_t null = 0;
inline constexpr std::uint8_t trueValue = 1;
inline constexpr std::uint8_t falseValue = 2;
inline constexpr std::uint8_t int32 = 3;
inline constexpr std::uint8_t int64 = 4;
inline constexpr std::uint8_t float64 = 6;
inline constexpr std::uint8_t string = 7;
inline constexpr std::uint8_t uint8List = 8;
inline constexpr std::uint8_t int32List = 9;
inline constexpr std::uint8_t int64List = 10;
inline constexpr std::uint8_t float64List = 11;
inline constexpr std::uint8_t list = 12;
inline constexpr std::uint8_t map = 13;
inline constexpr std::uint8_t float32List = 14;

// Sizes and counts: one byte below 254, else a marker and a 16- or 32-bit little-endian size.
inline constexpr std::uint8_t size16 = 254;
inline constexpr std::uint8_t size32 = 255;
}  // namespace wire

}  // namespace vornix::engine
