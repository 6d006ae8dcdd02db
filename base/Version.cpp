#include "base/Version.hpp"

namespace vornix::base {

std::string_view hostVersion() { return VORNIX_VERSION; }

}  // namespace vornix::base
