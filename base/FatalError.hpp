#pragma once

#include <string_view>

namespace vornix::base {

// The one way the host stops on a defect: writes "Fatal error: <cause>" as one line on
// standard error, then aborts. Malformed engine input, malformed URL events and missing
// objects that must exist all end here.
[[noreturn]] void fatalError(std::string_view cause);

}  // namespace vornix::base
