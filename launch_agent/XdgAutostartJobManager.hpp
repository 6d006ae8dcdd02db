#pragma once

#include <sys/types.h>

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "launch_agent/JobManager.hpp"

namespace vornix::launch_agent {

// The job manager of freedesktop sessions. Loading keeps an XDG autostart entry in step with the
// job file: "<Label>.desktop" in the autostart folder while the job is loaded with RunAtLoad true
// and not Disabled, gone otherwise; the session starts it at the next login. Starting runs the
// job's program now, as a child of the host (no shell, reaped like every child), with the job's
// working directory and environment; stopping ends what starting started.
//
// Nothing is written outside the autostart folder, which is made when missing. An entry is
// written beside its place and renamed over it, so an entry that cannot be written leaves the
// old one whole. Load and unload throw what the file system and the job file's decoding throw,
// and DesktopEntryError for a job no entry can express.
class XdgAutostartJobManager : public JobManager {
public:
    // `autostartFolder` names the folder afresh on every call ($XDG_CONFIG_HOME/autostart).
    explicit XdgAutostartJobManager(std::function<std::string()> autostartFolder);

    // Reads the job file and writes or removes its entry. Keys an entry cannot express (see
    // AutostartEntry) do not stop the job from starting at login: they are named in one line on
    // standard output.
    void load(const std::string& jobFile) override;
    // Reads the job file and removes its entry (an entry already gone is fine).
    void unload(const std::string& jobFile) override;
    // Runs the job's program unless what an earlier start started still runs. A program that
    // cannot be started goes unnoticed, as with launchd.
    void start(const LaunchAgent& agent) override;
    // Sends SIGTERM to what start started, while it runs.
    void stop(const LaunchAgent& agent) override;
    // running(pid:) while what start started lives, loaded while the entry exists, unloaded
    // otherwise.
    AgentStatus status(const LaunchAgent& agent) override;
    // RunAtLoad true, not Disabled, and the entry is there and enabled: not Hidden and not
    // switched off with X-GNOME-Autostart-enabled=false, as the desktops' settings do.
    bool startsAtLogin(const LaunchAgent& agent) override;

private:
    std::string entryPath(const std::string& label) const;
    // The running child that start started for `label`, if any.
    std::optional<pid_t> runningChild(const std::string& label);

    std::function<std::string()> autostartFolder_;
    std::mutex mutex_;
    std::map<std::string, pid_t> started_;
};

}  // namespace vornix::launch_agent
