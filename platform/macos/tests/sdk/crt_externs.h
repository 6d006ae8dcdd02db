// Declarations for the syntax check of the macOS build off a Mac: the C runtime's own variables,
// reached through functions, as Darwin declares them.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

char*** _NSGetEnviron(void);

#ifdef __cplusplus
}
#endif
