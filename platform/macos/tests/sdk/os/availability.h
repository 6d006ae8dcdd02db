// Declarations for the syntax check of the macOS build off a Mac: the availability macros of the
// system's headers, API_AVAILABLE(macos(10.15)) and API_UNAVAILABLE(ios), with one or two
// platforms.
#pragma once

#define __VX_API_AVAILABLE_macos(version) __attribute__((availability(macos, introduced = version)))
#define __VX_API_AVAILABLE_ios(version) __attribute__((availability(ios, introduced = version)))
#define __VX_API_UNAVAILABLE_macos __attribute__((availability(macos, unavailable)))
#define __VX_API_UNAVAILABLE_ios __attribute__((availability(ios, unavailable)))
#define __VX_API_PICK(_1, _2, name, ...) name
#define __VX_API_AVAILABLE_1(a) __VX_API_AVAILABLE_##a
#define __VX_API_AVAILABLE_2(a, b) __VX_API_AVAILABLE_##a __VX_API_AVAILABLE_##b
#define __VX_API_UNAVAILABLE_1(a) __VX_API_UNAVAILABLE_##a
#define __VX_API_UNAVAILABLE_2(a, b) __VX_API_UNAVAILABLE_##a __VX_API_UNAVAILABLE_##b
#define API_AVAILABLE(...) __VX_API_PICK(__VA_ARGS__, __VX_API_AVAILABLE_2, __VX_API_AVAILABLE_1)(__VA_ARGS__)
#define API_UNAVAILABLE(...) __VX_API_PICK(__VA_ARGS__, __VX_API_UNAVAILABLE_2, __VX_API_UNAVAILABLE_1)(__VA_ARGS__)
// Deprecation on macOS: API_DEPRECATED("message", macos(10.0, 14.0)).
#define __VX_API_DEPRECATED_macos(introduced_, deprecated_) macos, introduced = introduced_, deprecated = deprecated_
#define API_DEPRECATED(msg, platform) __attribute__((availability(__VX_API_DEPRECATED_##platform, message = msg)))
