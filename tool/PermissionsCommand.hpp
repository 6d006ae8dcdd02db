#pragma once

#include "tool/Command.hpp"

namespace vornix::tool {

// `vornix-tool permissions MODE` and `vornix-tool permissions --umask MASK`: the six forms of
// the permissions, one value a line: octal, decimal, symbolic, description, umaskOctal, umaskDecimal.
int runPermissions(const Invocation& invocation);

}  // namespace vornix::tool
