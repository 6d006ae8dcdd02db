#pragma once

#include <string>
#include <string_view>

#include "launch_agent/LaunchAgent.hpp"
#include "launch_agent/LaunchAgentStatus.hpp"
#include "platform/Port.hpp"

namespace vornix::launch_agent {

// The system's job manager, below LaunchControl: what loading a job file, starting and stopping
// a job, and asking for its status mean on this system. launchd ("/bin/launchctl") on macOS,
// which is also what LaunchControl uses when no other is installed; the XDG autostart job
// manager on Linux, installed by the Linux host.
class JobManager : public platform::Port<JobManager> {
public:
    static constexpr std::string_view portName = "job manager";

    virtual ~JobManager() = default;

    // Hands the job file to the manager / takes it back.
    virtual void load(const std::string& jobFile) = 0;
    virtual void unload(const std::string& jobFile) = 0;
    // Runs the job now / ends it.
    virtual void start(const LaunchAgent& agent) = 0;
    virtual void stop(const LaunchAgent& agent) = 0;
    virtual AgentStatus status(const LaunchAgent& agent) = 0;
    // Whether the job, as read from its file, starts at the next login. The job file says so
    // with RunAtLoad; a manager that keeps state of its own elsewhere, which the desktop's
    // settings can change, also asks that state.
    virtual bool startsAtLogin(const LaunchAgent& agent) = 0;
};

}  // namespace vornix::launch_agent
