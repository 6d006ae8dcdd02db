#pragma once

#include <string>

#include "launch_agent/JobManager.hpp"

namespace vornix::launch_agent {

// launchd through "/bin/launchctl", run through the processes port, fire and forget: neither
// what it does nor whether it could be started at all is looked at, so nothing here throws.
class LaunchctlJobManager : public JobManager {
public:
    // "/bin/launchctl" "load" / "unload" with the job file's path.
    void load(const std::string& jobFile) override;
    void unload(const std::string& jobFile) override;
    // "/bin/launchctl" "start" / "stop" with the agent's label.
    void start(const LaunchAgent& agent) override;
    void stop(const LaunchAgent& agent) override;
    // "/bin/launchctl" "list" | "/usr/bin/grep" <label> | "/usr/bin/cut" "-f1", without a shell,
    // read to its end. The label is grep's pattern, so it matches loosely (its dots match any
    // character, anywhere in a line). Output that is not UTF-8 reads as empty, and a pipeline
    // that cannot start as no output; line ends are trimmed from both ends. "-" is loaded,
    // nothing is unloaded, a decimal integer is running with that pid, and anything else (two
    // matching lines, say) stops the process.
    AgentStatus status(const LaunchAgent& agent) override;
    // launchd keeps nothing outside the job file: its RunAtLoad is the answer.
    bool startsAtLogin(const LaunchAgent& agent) override;

private:
    void runLaunchctl(std::string verb, std::string operand);
};

}  // namespace vornix::launch_agent
