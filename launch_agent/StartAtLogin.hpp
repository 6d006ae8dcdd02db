#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "launch_agent/LaunchAgent.hpp"

namespace vornix::launch_agent {

// Starts the application when the user logs in, through one job of its own,
// "com.vornix.os.launch.plist" in the user's launch agents folder, loaded into or unloaded from
// the job manager. The popover's "Launch on Login" switch is its caller. Neither operation
// throws: a failure is one line on standard output.
class StartAtLogin {
public:
    // The one process-wide instance, made on first use (thread-safe) and never released.
    static StartAtLogin& shared();

    // The job's label; its file is "<label>.plist".
    static constexpr std::string_view jobLabel = "com.vornix.os.launch";

    // Starts with the built-in job: "com.vornix.os.launch" running "/usr/bin/open" "-W"
    // "/Applications/Vornix OS.app", every other member absent.
    StartAtLogin();
    virtual ~StartAtLogin() = default;
    StartAtLogin(const StartAtLogin&) = delete;
    StartAtLogin& operator=(const StartAtLogin&) = delete;

    // The application's own job; replaced by the job file on disk the first time
    // loadLaunchAgent() finds one, so that settings edited into the file are kept.
    std::shared_ptr<LaunchAgent> launchAgent;

    // Makes `program` the job's program in place of the built-in "/usr/bin/open" one, for
    // systems where that does not start the application: in `launchAgent`, and in a job file
    // that still names the built-in program (one an earlier version wrote), keeping its other
    // settings. A job file that cannot be read or written is left as it is, silently: the switch
    // reports failures when it is used.
    virtual void replaceBuiltInProgram(const std::string& program);

    // Picks up the job file when there is one (silently keeping the current job when it cannot
    // be read), switches runAtLoad on, writes the file, then loads it. A failed write or load
    // prints "Unable to load LaunchAgent: <error>".
    virtual void loadLaunchAgent();

    // Works from the job file alone: reads it, unloads it, then writes it back with runAtLoad
    // off (kept, not deleted, for the next load to pick up). Any failure stops there and prints
    // "Unable to unload LaunchAgent: <error>".
    virtual void unloadLaunchAgent();
};

}  // namespace vornix::launch_agent
