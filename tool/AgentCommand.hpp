#pragma once

#include "tool/Command.hpp"

namespace vornix::tool {

// `vornix-tool agent FILE`: reads a job file (XML or binary) as a LaunchAgent and prints it
// re-encoded as XML, so that it shows exactly what the host would write back: unknown keys
// dropped, known keys in their written form. A decoding failure is one line on standard
// error, "KIND at PATH: description" (PATH the coding path joined by "/", empty at the top
// level), and a non-zero exit.
int runAgent(const Invocation& invocation);

}  // namespace vornix::tool
