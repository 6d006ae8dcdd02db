// Declarations for the syntax check of the macOS backend off a Mac: the system's version macros,
// as AvailabilityMacros.h defines them. GoogleTest's headers include it on Apple targets.
#pragma once

#define MAC_OS_X_VERSION_10_14 101400
#define MAC_OS_X_VERSION_10_15 101500
#define MAC_OS_X_VERSION_MIN_REQUIRED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__
