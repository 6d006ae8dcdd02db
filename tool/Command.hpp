#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace vornix::tool {

// What a subcommand of vornix-tool gets: its own arguments (after its name) and the three streams.
struct Invocation {
    std::span<const std::string> args;
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

// One subcommand: `vornix-tool NAME ...`. `run` returns the process exit status.
struct Command {
    std::string_view name;
    std::string_view usage;
    int (*run)(const Invocation& invocation);
};

}  // namespace vornix::tool
