// Declarations for the syntax check of the macOS backend off a Mac: CoreMedia brings CoreVideo's
// buffer types, which is all the engine's headers take from it.
#pragma once

#include <CoreVideo/CoreVideo.h>
