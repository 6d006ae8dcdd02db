// Forced into every C++ source check-deployment-target.sh compiles: the floating-point overloads
// of std::to_chars and std::from_chars, declared again as deprecated, so that a call of one is an
// error under -Werror=deprecated-declarations while the integer overloads stay as they are.
#pragma once

#include <charconv>

namespace std {

#define VORNIX_UNAVAILABLE_ON_MACOS_10_14 [[deprecated("missing on macOS 10.14; use base/RealText.hpp")]]

VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, float) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, double) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, long double) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, float, chars_format) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, double, chars_format) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, long double, chars_format) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, float, chars_format, int) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, double, chars_format, int) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 to_chars_result to_chars(char*, char*, long double, chars_format, int) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 from_chars_result from_chars(const char*, const char*, float&,
                                                             chars_format) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 from_chars_result from_chars(const char*, const char*, double&,
                                                             chars_format) noexcept;
VORNIX_UNAVAILABLE_ON_MACOS_10_14 from_chars_result from_chars(const char*, const char*, long double&,
                                                             chars_format) noexcept;

#undef VORNIX_UNAVAILABLE_ON_MACOS_10_14

}  // namespace std
