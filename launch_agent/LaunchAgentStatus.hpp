#pragma once

#include <cstdint>
#include <optional>
#include <ostream>

namespace vornix::launch_agent {

class LaunchAgent;

// What the system's job manager knows of a job: loaded with a process, loaded without one,
// or not known at all. Two statuses are equal when they are the same case and, for running,
// carry the same process id.
class AgentStatus {
public:
    enum class Case { running, loaded, unloaded };

    static AgentStatus running(std::int64_t pid) { return AgentStatus(Case::running, pid); }
    static AgentStatus loaded() { return AgentStatus(Case::loaded, 0); }
    static AgentStatus unloaded() { return AgentStatus(Case::unloaded, 0); }

    Case kind() const { return case_; }
    // The job's process id when it is running; nothing otherwise.
    std::optional<std::int64_t> pid() const;

    friend bool operator==(const AgentStatus&, const AgentStatus&) = default;

private:
    AgentStatus(Case kind, std::int64_t pid) : case_(kind), pid_(pid) {}

    Case case_;
    std::int64_t pid_;
};

// "running(pid: 4242)", "loaded" or "unloaded".
std::ostream& operator<<(std::ostream& stream, const AgentStatus& status);

// The job operations offered on the record itself, written `load(agent)`: each one takes
// LaunchControl::shared() and forwards to it with `agent`. They are free functions so that the
// record stays a plain description that knows nothing of the controller above it.
void start(const LaunchAgent& agent);
void stop(const LaunchAgent& agent);
void load(const LaunchAgent& agent);    // throws what LaunchControl::load throws
void unload(const LaunchAgent& agent);  // throws what LaunchControl::unload throws
AgentStatus status(const LaunchAgent& agent);

}  // namespace vornix::launch_agent
