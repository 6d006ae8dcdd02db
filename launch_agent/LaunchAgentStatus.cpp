#include "launch_agent/LaunchAgentStatus.hpp"

#include "launch_agent/LaunchControl.hpp"

namespace vornix::launch_agent {

std::optional<std::int64_t> AgentStatus::pid() const {
    if (case_ == Case::running) {
        return pid_;
    }
    return std::nullopt;
}

std::ostream& operator<<(std::ostream& stream, const AgentStatus& status) {
    switch (status.kind()) {
        case AgentStatus::Case::running:
            return stream << "running(pid: " << *status.pid() << ")";
        case AgentStatus::Case::loaded:
            return stream << "loaded";
        case AgentStatus::Case::unloaded:
            return stream << "unloaded";
    }
    return stream;
}

void start(const LaunchAgent& agent) { LaunchControl::shared().start(agent); }

void stop(const LaunchAgent& agent) { LaunchControl::shared().stop(agent); }

void load(const LaunchAgent& agent) { LaunchControl::shared().load(agent); }

void unload(const LaunchAgent& agent) { LaunchControl::shared().unload(agent); }

AgentStatus status(const LaunchAgent& agent) { return LaunchControl::shared().status(agent); }

}  // namespace vornix::launch_agent
