#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "launch_agent/JobManager.hpp"
#include "launch_agent/LaunchAgent.hpp"
#include "launch_agent/LaunchAgentStatus.hpp"

namespace vornix::launch_agent {

// The one error of launch control's own. Its description (what()) is the localized one.
class LaunchControlError : public std::runtime_error {
public:
    enum class Kind { urlNotSet };

    // A load or unload was asked for an agent whose job file is not known.
    static LaunchControlError urlNotSet(std::string label);

    Kind kind() const { return kind_; }
    // The label of the agent concerned.
    const std::string& label() const { return label_; }
    // "The URL is not set for agent <label>".
    std::string localizedDescription() const { return what(); }

private:
    LaunchControlError(Kind kind, std::string label, const std::string& description);

    Kind kind_;
    std::string label_;
};

// Manages per-user launchd jobs: keeps LaunchAgent records as job files (XML property lists)
// in the user's "LaunchAgents" folder, finds the file that belongs to an agent, and drives the
// system's job manager (the JobManager port: "/bin/launchctl" unless another one is installed,
// as the XDG autostart one is on Linux). Reached through `shared`. Folder, files and tools are the
// platform's (the Directories and Processes ports, files through POSIX); the folder is looked up
// afresh on every call and nothing is cached.
//
// Every file, folder and property-list error reaches the caller unchanged:
// platform::FileError (a std::system_error) for the folder and its files,
// plist::DecodingError and plist::EncodingError for the contents. launchd is fire and forget:
// neither what it does nor whether it could be started at all is looked at (a pipeline that
// cannot start reads as empty output). The autostart job manager works in-process and passes
// its file errors on from load and unload.
class LaunchControl {
public:
    // Agents to job-file bytes: an XML property list, version 1.0.
    class Encoder {
    public:
        std::string encode(const LaunchAgent& agent) const;
    };
    // Job-file bytes (an XML or binary property list) to a new agent, without a `url`.
    class Decoder {
    public:
        std::shared_ptr<LaunchAgent> decode(std::string_view bytes) const;
    };

    // The one process-wide instance, made on first use (thread-safe) and never released.
    static LaunchControl& shared();

    LaunchControl() = default;
    virtual ~LaunchControl() = default;
    LaunchControl(const LaunchControl&) = delete;
    LaunchControl& operator=(const LaunchControl&) = delete;

    const Encoder encoder{};
    const Decoder decoder{};

    // The "LaunchAgents" folder inside the user's Library folder; neither tested nor created.
    virtual std::string launchAgentsURL() const;

    // The agent in the file `name` (the whole file name, no extension added) of the folder,
    // with `url` set to that file.
    virtual std::shared_ptr<LaunchAgent> readAgent(const std::string& name) const;
    // The agent in the file at `url`, with `url` set to it.
    virtual std::shared_ptr<LaunchAgent> readFrom(const std::string& url) const;

    // The three writes end alike: the target gets the extension "plist" unless its extension
    // is exactly that (so "job" and "job.plist" give "job.plist", "job.PLIST" gives
    // "job.PLIST.plist"), the agent is written there as XML, overwriting in place, and only
    // then is its `url` set to the target.
    // Into the folder, named after the agent's label.
    virtual void write(LaunchAgent& agent) const;
    // Into the folder, under `name`.
    virtual void writeCalled(LaunchAgent& agent, const std::string& name) const;
    // At `url`.
    virtual void writeTo(LaunchAgent& agent, const std::string& url) const;

    // Finds the agent's job file by content: every visible entry of the folder, in ascending
    // byte order of names, is read and decoded; each whose label equals the agent's sets its
    // `url`, so the last match wins. Entries that cannot be read or decoded are skipped; with
    // no match `url` stays as it was. Only the folder lookup and its listing throw.
    virtual void setURLFor(LaunchAgent& agent) const;

    // The job manager loads / unloads the agent's job file (with launchd: "/bin/launchctl"
    // "load" / "unload" and its path, started and not waited for). Throws
    // LaunchControlError::urlNotSet when `url` is absent, and what the job manager throws
    // (launchd: nothing).
    void load(const LaunchAgent& agent) const;
    void unload(const LaunchAgent& agent) const;
    // The job manager starts / stops the job (with launchd: "/bin/launchctl" "start" / "stop"
    // and its label, started and not waited for). Nothing is thrown.
    void start(const LaunchAgent& agent) const;
    void stop(const LaunchAgent& agent) const;

    // What the job manager knows of the job (see LaunchctlJobManager::status and
    // XdgAutostartJobManager::status).
    AgentStatus status(const LaunchAgent& agent) const;

    // Whether the job, read from its file, will be started at the next login (see
    // JobManager::startsAtLogin).
    bool startsAtLogin(const LaunchAgent& agent) const;

private:
    static JobManager& jobManager();
    void writeAgent(LaunchAgent& agent, std::string target) const;
};

}  // namespace vornix::launch_agent
