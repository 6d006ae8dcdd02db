#include "launch_agent/LaunchAgent.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace vornix::launch_agent;

using Words = std::vector<std::string>;

TEST(LaunchAgent, AOneWordProgramListSetsProgramOnly) {
    const LaunchAgent agent("com.example.job", Words{"/usr/local/bin/tool"});
    EXPECT_EQ(agent.label, "com.example.job");
    EXPECT_EQ(agent.program, "/usr/local/bin/tool");
    EXPECT_EQ(agent.programArguments, std::nullopt);
}

TEST(LaunchAgent, ATwoWordProgramListSetsProgramArgumentsOnly) {
    const LaunchAgent agent("com.example.job", Words{"/usr/bin/open", "/Applications/Vornix OS.app"});
    EXPECT_EQ(agent.program, std::nullopt);
    EXPECT_EQ(agent.programArguments, (Words{"/usr/bin/open", "/Applications/Vornix OS.app"}));
}

TEST(LaunchAgent, AnEmptyProgramListSetsAnEmptyProgramArguments) {
    const LaunchAgent agent("com.example.job", Words{});
    EXPECT_EQ(agent.program, std::nullopt);
    ASSERT_TRUE(agent.programArguments.has_value());
    EXPECT_TRUE(agent.programArguments->empty());
}

TEST(LaunchAgent, WordsGivenOneByOneBehaveAsTheList) {
    const LaunchAgent one("job", "/bin/tool");
    EXPECT_EQ(one.program, "/bin/tool");
    EXPECT_EQ(one.programArguments, std::nullopt);
    const std::string flag = "--flag";
    const LaunchAgent three("job", "/bin/tool", flag, std::string("value"));
    EXPECT_EQ(three.program, std::nullopt);
    EXPECT_EQ(three.programArguments, (Words{"/bin/tool", "--flag", "value"}));
    const LaunchAgent none("job");
    EXPECT_EQ(none.programArguments, Words{});
    EXPECT_EQ(none.program, std::nullopt);
}

TEST(LaunchAgent, ConstructionLeavesEveryOtherMemberAbsent) {
    const LaunchAgent agent("job", "/bin/tool");
    EXPECT_EQ(agent.url, std::nullopt);
    EXPECT_EQ(agent.disabled, std::nullopt);
    EXPECT_EQ(agent.runAtLoad, std::nullopt);
    EXPECT_EQ(agent.startCalendarInterval, nullptr);
    EXPECT_EQ(agent.inetdCompatibility, nullptr);
    EXPECT_EQ(agent.hardResourceLimits, nullptr);
    EXPECT_EQ(agent.softResourceLimits, nullptr);
    EXPECT_EQ(agent.machServices, std::nullopt);
    EXPECT_EQ(agent.nice, std::nullopt);
    EXPECT_EQ(agent.processType, std::nullopt);
}

TEST(LaunchAgent, NiceIsKeptInMinusTwentyToTwentyOnAssignment) {
    LaunchAgent agent("job", "/bin/tool");
    agent.nice = -21;
    EXPECT_EQ(agent.nice, -20);
    agent.nice = 21;
    EXPECT_EQ(agent.nice, 20);
    agent.nice = -20;
    EXPECT_EQ(agent.nice, -20);
    agent.nice = 20;
    EXPECT_EQ(agent.nice, 20);
    agent.nice = 0;
    EXPECT_EQ(agent.nice, 0);
}

TEST(LaunchAgent, AssigningAbsentNiceKeepsAbsence) {
    LaunchAgent agent("job", "/bin/tool");
    agent.nice = std::nullopt;
    EXPECT_EQ(agent.nice, std::nullopt);
    agent.nice = 5;
    agent.nice = std::nullopt;
    EXPECT_EQ(agent.nice, std::nullopt);
}

TEST(LaunchAgent, InPlaceModificationOfNiceClamps) {
    LaunchAgent agent("job", "/bin/tool");
    agent.nice = 15;
    agent.nice += 10;
    EXPECT_EQ(agent.nice, 20);
    agent.nice -= 100;
    EXPECT_EQ(agent.nice, -20);
}

TEST(LaunchAgent, OtherIntegerMembersAcceptAnyValue) {
    LaunchAgent agent("job", "/bin/tool");
    agent.umask = -1;
    agent.startInterval = -300;
    agent.exitTimeOut = -1;
    agent.timeOut = 0;
    agent.throttleInterval = 1'000'000'000'000;
    EXPECT_EQ(agent.umask, -1);
    EXPECT_EQ(agent.startInterval, -300);
    EXPECT_EQ(agent.exitTimeOut, -1);
    EXPECT_EQ(agent.timeOut, 0);
    EXPECT_EQ(agent.throttleInterval, 1'000'000'000'000);
}

TEST(LaunchAgent, AChangeThroughOneHolderIsSeenByAll) {
    const auto agent = std::make_shared<LaunchAgent>("job", "/bin/tool");
    const std::shared_ptr<LaunchAgent> other = agent;
    other->runAtLoad = true;
    EXPECT_EQ(agent->runAtLoad, true);
}

}  // namespace
