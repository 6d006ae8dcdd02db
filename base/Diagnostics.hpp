#pragma once

#include <string_view>

namespace vornix::base {

// Writes one diagnostic line ("finished launching", "PLUGIN REGISTERED", ...) to standard
// output and flushes it, so that lines from the host interleave correctly with its children.
void printLine(std::string_view line);

}  // namespace vornix::base
