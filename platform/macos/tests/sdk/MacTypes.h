// Declarations for the syntax check of the macOS backend off a Mac: the fixed-width types of
// the Carbon-era interfaces that Foundation and the engine's codecs still use.
#pragma once

#include <stdint.h>

typedef uint8_t UInt8;
typedef int16_t SInt16;
typedef int32_t SInt32;
typedef uint32_t UInt32;
typedef UInt32 FourCharCode;
