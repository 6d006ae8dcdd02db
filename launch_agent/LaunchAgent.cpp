#include "launch_agent/LaunchAgent.hpp"

namespace vornix::launch_agent {

LaunchAgent::LaunchAgent(std::string label, std::vector<std::string> program) : label(std::move(label)) {
    if (program.size() == 1) {
        this->program = std::move(program.front());
    } else {
        programArguments = std::move(program);
    }
}

}  // namespace vornix::launch_agent
