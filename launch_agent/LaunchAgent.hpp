#pragma once

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "launch_agent/ClampedOptional.hpp"
#include "launch_agent/MachService.hpp"
#include "launch_agent/ProcessType.hpp"
#include "launch_agent/ResourceLimits.hpp"
#include "launch_agent/StartCalendarInterval.hpp"
#include "launch_agent/inetdCompatibility.hpp"

namespace vornix::launch_agent {

// One launchd job description: the dictionary launchd reads from a job file. Shared by its
// holders through std::shared_ptr. Every member but `url` and `label` is optional, and an
// absent member is never written. `url` is where the job file lives; it is never written or read.
class LaunchAgent {
public:
    // A label and the program's words: one word becomes `program`; no word, or two and more,
    // become `programArguments` (so an empty list is a present, empty argument list).
    LaunchAgent(std::string label, std::vector<std::string> program);
    // The same with the words given one by one: LaunchAgent("com.example.job", "/usr/bin/tool", "--flag").
    template <class... Words>
        requires(std::convertible_to<Words, std::string> && ...)
    explicit LaunchAgent(std::string label, Words&&... words)
        : LaunchAgent(std::move(label), std::vector<std::string>{std::string(std::forward<Words>(words))...}) {}

    std::optional<std::filesystem::path> url;
    std::string label;
    std::optional<bool> disabled;
    std::optional<bool> enableGlobbing;
    std::optional<std::string> program;
    std::optional<std::vector<std::string>> programArguments;
    std::optional<std::string> workingDirectory;
    std::optional<std::string> standardInPath;
    std::optional<std::string> standardOutPath;
    std::optional<std::string> standardErrorPath;
    std::optional<std::map<std::string, std::string>> environmentVariables;
    std::optional<bool> runAtLoad;
    std::optional<std::int64_t> startInterval;
    std::shared_ptr<StartCalendarInterval> startCalendarInterval;
    std::optional<bool> startOnMount;
    std::optional<bool> onDemand;
    std::optional<bool> keepAlive;
    std::optional<std::vector<std::string>> watchPaths;
    std::optional<std::vector<std::string>> queueDirectories;
    std::optional<std::int64_t> umask;
    std::optional<bool> sessionCreate;
    std::optional<std::string> groupName;
    std::optional<std::string> userName;
    std::optional<bool> initGroups;
    std::optional<std::string> rootDirectory;
    std::optional<bool> launchOnlyOnce;
    std::optional<std::vector<std::string>> limitLoadToSessionType;
    std::optional<std::vector<std::string>> limitLoadToHosts;
    std::optional<std::vector<std::string>> limitLoadFromHosts;
    std::optional<bool> abandonProcessGroup;
    std::optional<bool> enablePressuredExit;
    std::optional<bool> enableTransactions;
    std::optional<std::int64_t> exitTimeOut;
    std::shared_ptr<launch_agent::inetdCompatibility> inetdCompatibility;
    std::shared_ptr<ResourceLimits> hardResourceLimits;
    std::shared_ptr<ResourceLimits> softResourceLimits;
    std::optional<std::int64_t> timeOut;
    std::optional<std::int64_t> throttleInterval;
    std::optional<std::map<std::string, std::shared_ptr<MachService>>> machServices;
    std::optional<bool> debug;
    std::optional<bool> waitForDebugger;
    std::optional<bool> legacyTimers;
    std::optional<bool> lowPriorityIO;
    std::optional<bool> lowPriorityBackgroundIO;
    // Kept in -20...20 on assignment; decoding and constructors store values as given.
    ClampedOptional<-20, 20> nice;
    std::optional<ProcessType> processType;
};

}  // namespace vornix::launch_agent
