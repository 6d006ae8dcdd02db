#pragma once

#include "platform/Processes.hpp"

namespace vornix::platform {

// The processes port on POSIX systems (Linux and macOS alike): posix_spawn, anonymous pipes
// closed on exec, and the shared ChildReaper for every child, so that no call waits for a
// child's exit and none is left a zombie. Safe to use from any thread.
class PosixProcesses : public Processes {
public:
    void launch(const Invocation& invocation) override;
    std::string runPipeline(std::span<const Invocation> stages) override;
};

}  // namespace vornix::platform
