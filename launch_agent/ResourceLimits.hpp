#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "launch_agent/RawValue.hpp"

namespace vornix::launch_agent {

// One set of process resource limits: a job holds one as "HardResourceLimits" and one as
// "SoftResourceLimits". Every limit is optional, written only when present; none is range-checked.
class ResourceLimits {
public:
    using Limit = std::optional<std::int64_t>;

    enum class CodingKeys {
        cpu,
        core,
        data,
        fileSize,
        memoryLock,
        numberOfFiles,
        numberOfProcesses,
        residentSetSize,
        stack,
    };

    explicit ResourceLimits(Limit cpu = std::nullopt, Limit core = std::nullopt, Limit data = std::nullopt,
                            Limit fileSize = std::nullopt, Limit memoryLock = std::nullopt,
                            Limit numberOfFiles = std::nullopt, Limit numberOfProcesses = std::nullopt,
                            Limit residentSetSize = std::nullopt, Limit stack = std::nullopt);
    explicit ResourceLimits(const plist::KeyedDecoder& decoder);
    void encode(plist::KeyedEncoder& encoder) const;

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

template <>
struct vornix::plist::RawValues<vornix::launch_agent::ResourceLimits::CodingKeys> {
    using CodingKeys = vornix::launch_agent::ResourceLimits::CodingKeys;
    static constexpr std::pair<CodingKeys, std::string_view> table[] = {
        {CodingKeys::cpu, "CPU"},
        {CodingKeys::core, "Core"},
        {CodingKeys::data, "Data"},
        {CodingKeys::fileSize, "FileSize"},
        {CodingKeys::memoryLock, "MemoryLock"},
        {CodingKeys::numberOfFiles, "NumberOfFiles"},
        {CodingKeys::numberOfProcesses, "NumberOfProcesses"},
        {CodingKeys::residentSetSize, "ResidentSetSize"},
        {CodingKeys::stack, "Stack"},
    };
};
