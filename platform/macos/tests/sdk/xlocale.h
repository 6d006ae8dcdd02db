// Declarations for the syntax check of the macOS build off a Mac: Darwin's functions that take
// their locale as an argument, where a null locale is the "C" locale. This machine's C library
// has the locale type and most of them; these are the ones it lacks, which Apple's configuration
// of the C++ library calls.
#pragma once

#include <locale.h>
#include <stdarg.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

int snprintf_l(char* text, size_t size, locale_t locale, const char* format, ...)
    __attribute__((format(printf, 4, 5)));
int asprintf_l(char** text, locale_t locale, const char* format, ...) __attribute__((format(printf, 3, 4)));
int sscanf_l(const char* text, locale_t locale, const char* format, ...) __attribute__((format(scanf, 3, 4)));

#ifdef __cplusplus
}
#endif
