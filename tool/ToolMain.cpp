#include "tool/ToolMain.hpp"

#include <algorithm>
#include <ostream>

#include "base/Version.hpp"
#include "tool/Commands.hpp"

namespace vornix::tool {
namespace {

void printUsage(std::ostream& out) {
    out << "usage: vornix-tool COMMAND [ARGS...]\n"
           "       vornix-tool --help | --version\n"
           "Looks into the Vornix OS host's job files and channel traffic.\n";
    for (const Command& command : commands()) {
        out << "  " << command.usage << '\n';
    }
}

}  // namespace

int runTool(std::span<const std::string> args, std::istream& in, std::ostream& out, std::ostream& err) {
    if (args.empty()) {
        printUsage(err);
        return 2;
    }
    if (args[0] == "--help" || args[0] == "-h") {
        printUsage(out);
        return 0;
    }
    if (args[0] == "--version") {
        out << "vornix-tool " << base::hostVersion() << '\n';
        return 0;
    }
    const auto found = std::ranges::find(commands(), args[0], &Command::name);
    if (found == commands().end()) {
        err << "vornix-tool: unknown command '" << args[0] << "' (see vornix-tool --help)\n";
        return 2;
    }
    return found->run(Invocation{args.subspan(1), in, out, err});
}

}  // namespace vornix::tool
