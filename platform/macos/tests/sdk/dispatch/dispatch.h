// Declarations for the syntax check of the macOS backend off a Mac: the part of libdispatch the
// backend uses (the main queue, async, after).
#pragma once

#include <stdint.h>

#include <TargetConditionals.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct dispatch_queue_s* dispatch_queue_t;
typedef void (^dispatch_block_t)(void);
typedef uint64_t dispatch_time_t;

#define DISPATCH_TIME_NOW (0ull)
#define NSEC_PER_SEC 1000000000ull

// The queue of the main thread (an inline function in the SDK; callers cannot tell the difference).
dispatch_queue_t dispatch_get_main_queue(void);

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);
dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta);

#ifdef __cplusplus
}
#endif
