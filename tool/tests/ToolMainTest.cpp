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
