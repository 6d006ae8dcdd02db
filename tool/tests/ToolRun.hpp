#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "tool/ToolMain.hpp"

namespace vornix::tool::testing {

// What one in-process run of vornix-tool gave: its exit status and both output streams.
struct ToolRun {
    int status;
    std::string out;
    std::string err;
};

inline ToolRun runToolWith(std::vector<std::string> args, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const int status = runTool(args, in, out, err);
    return {status, out.str(), err.str()};
}

}  // namespace vornix::tool::testing
