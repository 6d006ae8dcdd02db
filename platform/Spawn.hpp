#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>

#include "platform/Invocation.hpp"

namespace vornix::platform {

// Where a child's standard input and output come from; -1 inherits the host's own.
struct StandardStreams {
    int input = -1;
    int output = -1;
};

// What a job's program gets besides its words: a working folder, and variables added to (or
// replacing those of) the host's environment.
struct ChildSettings {
    std::optional<std::string> workingDirectory;
    std::map<std::string, std::string> environment;
};

// Starts `invocation` with posix_spawn and returns its process id; the caller owns the child
// and must see that it is reaped. The child gets the host's environment, the given streams,
// the host's standard error, an empty signal mask and default signal actions, and no other
// descriptor of the host. Throws std::system_error when the tool cannot be started and
// std::invalid_argument when its path is not absolute.
pid_t spawnChild(const Invocation& invocation, StandardStreams streams, const ChildSettings& settings = {});

}  // namespace vornix::platform
