#pragma once

#include <string_view>

namespace vornix::base {

// The host's own version, from the build (the project version in CMakeLists.txt).
std::string_view hostVersion();

}  // namespace vornix::base
