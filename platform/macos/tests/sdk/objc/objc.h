// Declarations for the syntax check of the macOS backend off a Mac: the Objective-C runtime's
// basic names (id, Class and SEL are the compiler's own).
#pragma once

#if defined(__arm64__) || defined(__aarch64__)
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif

#define YES __objc_yes
#define NO __objc_no

#ifdef __cplusplus
#define nil nullptr
#define Nil nullptr
#else
#define nil ((id)0)
#define Nil ((Class)0)
#endif
