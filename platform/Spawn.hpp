#pragma once

#include <sys/types.h>

#include "platform/Invocation.hpp"

namespace vornix::platform {

// Where a child's standard input and output come from; -1 inherits the host's own.
struct StandardStreams {
    int input = -1;
    int output = -1;
};

// Starts `invocation` with posix_spawn and returns its process id; the caller owns the child
// and must see that it is reaped. The child gets the host's environment, the given streams,
// the host's standard error, an empty signal mask and default signal actions, and no other
// descriptor of the host. Throws std::system_error when the tool cannot be started and
// std::invalid_argument when its path is not absolute.
pid_t spawnChild(const Invocation& invocation, StandardStreams streams);

}  // namespace vornix::platform
