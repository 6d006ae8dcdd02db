#include "tool/Commands.hpp"

#include <array>

#include "tool/PlistCommand.hpp"

namespace vornix::tool {

std::span<const Command> commands() {
    static const std::array table{
        Command{"plist", "plist lint FILE... | json FILE | xml FILE | from-json FILE", &runPlistCommand},
    };
    return table;
}

}  // namespace vornix::tool
