#pragma once

#include <span>

#include "tool/Command.hpp"

namespace vornix::tool {

// Every subcommand of vornix-tool, in the order `--help` lists them.
std::span<const Command> commands();

}  // namespace vornix::tool
