// Declarations for the syntax check of the macOS backend off a Mac: Foundation's base types and
// the annotation macros that Foundation, AppKit and the engine's and updater's headers use.
#pragma once

#include <limits.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include <TargetConditionals.h>
#include <objc/objc.h>
#include <os/availability.h>

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
