#include "launch_agent/MachService.hpp"

namespace vornix::launch_agent {

MachService::MachService(bool hideUntilCheckIn, bool resetAtClose)
    : hideUntilCheckIn(hideUntilCheckIn), resetAtClose(resetAtClose) {}

}  // namespace vornix::launch_agent
