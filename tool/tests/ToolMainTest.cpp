#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Version.hpp"
#include "tool/tests/ToolRun.hpp"

namespace {

using vornix::tool::testing::ToolRun;

ToolRun runTool(std::vector<std::string> args) { return vornix::tool::testing::runToolWith(std::move(args)); }

TEST(ToolMain, VersionPrintsTheHostVersion) {
    const ToolRun run = runTool({"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "vornix-tool " + std::string(vornix::base::hostVersion()) + "\n");
}

TEST(ToolMain, HelpGoesToStandardOutputAndSucceeds) {
    const ToolRun run = runTool({"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("usage: vornix-tool COMMAND"), std::string::npos);
}

TEST(ToolMain, HelpListsEveryCommandOnce) {
    const std::string out = runTool({"--help"}).out;
    for (const std::string command : {"plist lint", "agent FILE", "permissions MODE", "codec encode"}) {
        const std::size_t first = out.find(command);
        ASSERT_NE(first, std::string::npos) << command;
        EXPECT_EQ(out.find(command, first + 1), std::string::npos) << command << " is listed twice";
    }
}

TEST(ToolMain, NoArgumentsPrintsUsageToStandardErrorAndFails) {
    const ToolRun run = runTool({});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("usage:"), std::string::npos);
}

TEST(ToolMain, AnUnknownCommandFailsNamingIt) {
    const ToolRun run = runTool({"frobnicate"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "vornix-tool: unknown command 'frobnicate' (see vornix-tool --help)\n");
}

}  // namespace
