#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace vornix::tool {

// vornix-tool's whole behaviour, given its arguments (without the program name) and streams;
// returns the exit status. Kept apart from main() so that tests can drive it in-process.
int runTool(std::span<const std::string> args, std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace vornix::tool
