#pragma once

#include <string>
#include <vector>

namespace vornix::platform {

// One run of a tool: the absolute path of its executable and the words passed to it. The tool
// sees `tool` as its own name (argv[0]) followed by `arguments`; no shell is involved, so the
// words reach it exactly as given.
struct Invocation {
    std::string tool;
    std::vector<std::string> arguments;

    friend bool operator==(const Invocation&, const Invocation&) = default;
};

}  // namespace vornix::platform
