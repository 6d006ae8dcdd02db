#include "tool/Commands.hpp"

#include <array>

#include "tool/CodecCommand.hpp"

namespace vornix::tool {

std::span<const Command> commands() {
    static const std::array table{codecCommand};
    return table;
}

}  // namespace vornix::tool
