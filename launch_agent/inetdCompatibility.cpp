#include "launch_agent/inetdCompatibility.hpp"

namespace vornix::launch_agent {

inetdCompatibility::inetdCompatibility(bool wait) : wait(wait) {}

}  // namespace vornix::launch_agent
