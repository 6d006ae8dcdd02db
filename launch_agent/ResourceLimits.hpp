#pragma once

#include <cstdint>
#include <optional>

namespace vornix::launch_agent {

// One set of process resource limits: a job holds one as "HardResourceLimits" and one as
// "SoftResourceLimits". No limit is range-checked.
class ResourceLimits {
public:
    using Limit = std::optional<std::int64_t>;

    explicit ResourceLimits(Limit cpu = std::nullopt, Limit core = std::nullopt, Limit data = std::nullopt,
                            Limit fileSize = std::nullopt, Limit memoryLock = std::nullopt,
                            Limit numberOfFiles = std::nullopt, Limit numberOfProcesses = std::nullopt,
                            Limit residentSetSize = std::nullopt, Limit stack = std::nullopt);

    Limit cpu;
    Limit core;
    Limit data;
    Limit fileSize;
    Limit memoryLock;
    Limit numberOfFiles;
    Limit numberOfProcesses;
    Limit residentSetSize;
    Limit stack;
};

}  // namespace vornix::launch_agent
