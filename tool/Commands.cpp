#include "tool/Commands.hpp"

#include <array>

#include "tool/AgentCommand.hpp"
#include "tool/CodecCommand.hpp"
#include "tool/PermissionsCommand.hpp"
#include "tool/PlistCommand.hpp"

namespace vornix::tool {

std::span<const Command> commands() {
    static const std::array table{
        Command{"plist", "plist lint FILE... | json FILE | xml FILE | from-json FILE", &runPlistCommand},
        Command{"agent", "agent FILE", runAgent},
        Command{"permissions", "permissions MODE | permissions --umask MASK", runPermissions},
        codecCommand,
    };
    return table;
}

}  // namespace vornix::tool
