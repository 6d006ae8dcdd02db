#pragma once

#include <filesystem>
#include <string>

#include "platform/Directories.hpp"
#include "platform/Processes.hpp"
#include "platform/doubles/FixedDirectories.hpp"
#include "platform/doubles/RecordingProcesses.hpp"
#include "platform/doubles/TemporaryFolder.hpp"

namespace vornix::launch_agent::testing {

// A temporary home whose Library folder the directories port names, with an empty
// "LaunchAgents" folder in it, and a processes port that records instead of starting.
class LaunchControlTestHome {
public:
    LaunchControlTestHome()
        : directories_(home_.path() / "Library"), directoriesPort_(&directories_), processesPort_(&processes) {
        std::filesystem::create_directories(agentsFolder());
    }

    std::filesystem::path agentsFolder() const { return home_.path() / "Library" / "LaunchAgents"; }
    std::filesystem::path agentFile(const std::string& name) const { return agentsFolder() / name; }
    const platform::doubles::TemporaryFolder& home() const { return home_; }

    platform::doubles::RecordingProcesses processes;

private:
    platform::doubles::TemporaryFolder home_;
    platform::doubles::FixedDirectories directories_;
    platform::ScopedPort<platform::Directories> directoriesPort_;
    platform::ScopedPort<platform::Processes> processesPort_;
};

}  // namespace vornix::launch_agent::testing
