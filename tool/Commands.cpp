#include "tool/Commands.hpp"

#include <array>

namespace vornix::tool {

std::span<const Command> commands() {
    static const std::array<Command, 0> table{};
    return table;
}

}  // namespace vornix::tool
