// Declarations for the syntax check of the macOS backend off a Mac: the pixel buffer type that
// the engine's texture protocol hands over.
#pragma once

typedef struct __CVBuffer* CVBufferRef;
typedef CVBufferRef CVImageBufferRef;
typedef CVImageBufferRef CVPixelBufferRef;
