#pragma once

#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "launch_agent/ClampedOptional.hpp"
#include "launch_agent/MachService.hpp"
#include "launch_agent/ProcessType.hpp"
#include "launch_agent/RawValue.hpp"
#include "launch_agent/ResourceLimits.hpp"
#include "launch_agent/StartCalendarInterval.hpp"
#include "launch_agent/inetdCompatibility.hpp"

namespace vornix::launch_agent {

// One launchd job description: the dictionary launchd reads from a job file. Shared by its
// holders through std::shared_ptr. Every member but `url` and `label` is optional (a null
// pointer for the nested records), and an absent member is never written. `url` is where the
// job file lives; it is never written or read.
class LaunchAgent {
public:
    // The property-list keys, in the order members are encoded and decoded. Two keys keep
    // launchd's own forms: "inetdCompatibility" begins in lower case, and "ExitTimeOut" and
    // "TimeOut" have a capital O.
    enum class CodingKeys {
        label,
        disabled,
        enableGlobbing,
        program,
        programArguments,
        workingDirectory,
        standardInPath,
        standardOutPath,
        standardErrorPath,
        environmentVariables,
        runAtLoad,
        startInterval,
        startCalendarInterval,
        startOnMount,
        onDemand,
        keepAlive,
        watchPaths,
        queueDirectories,
        umask,
        sessionCreate,
        groupName,
        userName,
        initGroups,
        rootDirectory,
        launchOnlyOnce,
        limitLoadToSessionType,
        limitLoadToHosts,
        limitLoadFromHosts,
        abandonProcessGroup,
        enablePressuredExit,
        enableTransactions,
        exitTimeOut,
        inetdCompatibility,
        hardResourceLimits,
        softResourceLimits,
        timeOut,
        throttleInterval,
        machServices,
        debug,
        waitForDebugger,
        legacyTimers,
        lowPriorityIO,
        lowPriorityBackgroundIO,
        nice,
        processType,
    };

    // A label and the program's words: one word becomes `program`; no word, or two and more,
    // become `programArguments` (so an empty list is a present, empty argument list).
    LaunchAgent(std::string label, std::vector<std::string> program);
    // The same with the words given one by one: LaunchAgent("com.example.job", "/usr/bin/tool", "--flag").
    template <class... Words>
    requires(std::convertible_to<Words, std::string>&&...) explicit LaunchAgent(std::string label, Words&&... words)
        : LaunchAgent(std::move(label), std::vector<std::string>{std::string(std::forward<Words>(words))...}) {}
    // "Label" is required; every other key is read when present, in table order, and stored as
    // read (a "Nice" of 50 stays 50). Unknown keys are ignored. The first key that fails ends
    // the decode with its plist::DecodingError.
    explicit LaunchAgent(const plist::KeyedDecoder& decoder);
    // "Label" always, every other member only when present, in table order.
    void encode(plist::KeyedEncoder& encoder) const;

    std::optional<std::string> url;
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

template <>
struct vornix::plist::RawValues<vornix::launch_agent::LaunchAgent::CodingKeys> {
    using CodingKeys = vornix::launch_agent::LaunchAgent::CodingKeys;
    static constexpr std::pair<CodingKeys, std::string_view> table[] = {
        {CodingKeys::label, "Label"},
        {CodingKeys::disabled, "Disabled"},
        {CodingKeys::enableGlobbing, "EnableGlobbing"},
        {CodingKeys::program, "Program"},
        {CodingKeys::programArguments, "ProgramArguments"},
        {CodingKeys::workingDirectory, "WorkingDirectory"},
        {CodingKeys::standardInPath, "StandardInPath"},
        {CodingKeys::standardOutPath, "StandardOutPath"},
        {CodingKeys::standardErrorPath, "StandardErrorPath"},
        {CodingKeys::environmentVariables, "EnvironmentVariables"},
        {CodingKeys::runAtLoad, "RunAtLoad"},
        {CodingKeys::startInterval, "StartInterval"},
        {CodingKeys::startCalendarInterval, "StartCalendarInterval"},
        {CodingKeys::startOnMount, "StartOnMount"},
        {CodingKeys::onDemand, "OnDemand"},
        {CodingKeys::keepAlive, "KeepAlive"},
        {CodingKeys::watchPaths, "WatchPaths"},
        {CodingKeys::queueDirectories, "QueueDirectories"},
        {CodingKeys::umask, "Umask"},
        {CodingKeys::sessionCreate, "SessionCreate"},
        {CodingKeys::groupName, "GroupName"},
        {CodingKeys::userName, "UserName"},
        {CodingKeys::initGroups, "InitGroups"},
        {CodingKeys::rootDirectory, "RootDirectory"},
        {CodingKeys::launchOnlyOnce, "LaunchOnlyOnce"},
        {CodingKeys::limitLoadToSessionType, "LimitLoadToSessionType"},
        {CodingKeys::limitLoadToHosts, "LimitLoadToHosts"},
        {CodingKeys::limitLoadFromHosts, "LimitLoadFromHosts"},
        {CodingKeys::abandonProcessGroup, "AbandonProcessGroup"},
        {CodingKeys::enablePressuredExit, "EnablePressuredExit"},
        {CodingKeys::enableTransactions, "EnableTransactions"},
        {CodingKeys::exitTimeOut, "ExitTimeOut"},
        {CodingKeys::inetdCompatibility, "inetdCompatibility"},
        {CodingKeys::hardResourceLimits, "HardResourceLimits"},
        {CodingKeys::softResourceLimits, "SoftResourceLimits"},
        {CodingKeys::timeOut, "TimeOut"},
        {CodingKeys::throttleInterval, "ThrottleInterval"},
        {CodingKeys::machServices, "MachServices"},
        {CodingKeys::debug, "Debug"},
        {CodingKeys::waitForDebugger, "WaitForDebugger"},
        {CodingKeys::legacyTimers, "LegacyTimers"},
        {CodingKeys::lowPriorityIO, "LowPriorityIO"},
        {CodingKeys::lowPriorityBackgroundIO, "LowPriorityBackgroundIO"},
        {CodingKeys::nice, "Nice"},
        {CodingKeys::processType, "ProcessType"},
    };
};
