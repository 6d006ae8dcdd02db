// Declarations for the syntax check of the macOS backend off a Mac: Foundation's base types and
// the annotation macros that Foundation, AppKit and the engine's and updater's headers use.
#pragma once

#include <limits.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include <TargetConditionals.h>
#include <objc/objc.h>

#ifdef __cplusplus
#define FOUNDATION_EXTERN extern "C"
#else
#define FOUNDATION_EXTERN extern
#endif
#define FOUNDATION_EXPORT FOUNDATION_EXTERN

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define NS_UNAVAILABLE __attribute__((unavailable))
#define NS_REQUIRES_SUPER __attribute__((objc_requires_super))
#define NS_SWIFT_NAME(name) __attribute__((swift_name(#name)))
#define NS_NOESCAPE __attribute__((noescape))
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))

#define NS_ENUM(type, name) enum name : type name; enum name : type
// In C++ an option set is its integer type, so that options combine with | as they do in C.
#ifdef __cplusplus
#define NS_OPTIONS(type, name) type name; enum : type
#else
#define NS_OPTIONS(type, name) enum name : type name; enum name : type
#endif

// Availability: API_AVAILABLE(macos(10.15)) and API_UNAVAILABLE(ios), with one or two platforms.
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

#ifndef __deprecated
#define __deprecated __attribute__((deprecated))
#endif
#ifndef __deprecated_msg
#define __deprecated_msg(message) __attribute__((deprecated(message)))
#endif

typedef long NSInteger;
typedef unsigned long NSUInteger;
#define NSUIntegerMax ULONG_MAX
typedef double NSTimeInterval;

typedef NS_ENUM(NSInteger, NSComparisonResult) {
    NSOrderedAscending = -1L,
    NSOrderedSame,
    NSOrderedDescending
};

FOUNDATION_EXPORT double NSFoundationVersionNumber;
