#include "launch_agent/LaunchAgentStatus.hpp"

#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "launch_agent/LaunchControl.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"

namespace {

using vornix::launch_agent::AgentStatus;
using vornix::launch_agent::LaunchAgent;
using vornix::launch_agent::LaunchControlError;
using vornix::launch_agent::testing::LaunchControlTestHome;
using vornix::platform::Invocation;

TEST(AgentStatus, RunningEqualsRunningWithTheSamePidOnly) {
    EXPECT_EQ(AgentStatus::running(1), AgentStatus::running(1));
    EXPECT_NE(AgentStatus::running(1), AgentStatus::running(2));
}

TEST(AgentStatus, LoadedDiffersFromUnloadedAndFromRunning) {
    EXPECT_NE(AgentStatus::loaded(), AgentStatus::unloaded());
    EXPECT_NE(AgentStatus::running(0), AgentStatus::loaded());
    EXPECT_NE(AgentStatus::running(0), AgentStatus::unloaded());
    EXPECT_EQ(AgentStatus::loaded(), AgentStatus::loaded());
    EXPECT_EQ(AgentStatus::unloaded(), AgentStatus::unloaded());
}

TEST(AgentStatus, OnlyRunningCarriesAPid) {
    EXPECT_EQ(AgentStatus::running(4242).pid(), 4242);
    EXPECT_EQ(AgentStatus::running(4242).kind(), AgentStatus::Case::running);
    EXPECT_FALSE(AgentStatus::loaded().pid());
    EXPECT_FALSE(AgentStatus::unloaded().pid());
}

TEST(AgentStatus, ReadsAsItsCase) {
    std::ostringstream text;
    text << AgentStatus::running(4242) << " " << AgentStatus::loaded() << " " << AgentStatus::unloaded();
    EXPECT_EQ(text.str(), "running(pid: 4242) loaded unloaded");
}

TEST(LaunchAgentOperations, StartAndStopForwardToTheSharedController) {
    LaunchControlTestHome home;
    const LaunchAgent agent("com.example.job", "/usr/bin/true");
    start(agent);
    stop(agent);
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"start", "com.example.job"}},
                                                                  {"/bin/launchctl", {"stop", "com.example.job"}}}));
}

TEST(LaunchAgentOperations, LoadAndUnloadForwardAndThrowUrlNotSetUnchanged) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    EXPECT_THROW(load(agent), LaunchControlError);
    EXPECT_THROW(unload(agent), LaunchControlError);
    agent.url = home.agentFile("job.plist");
    load(agent);
    unload(agent);
    const std::string path = home.agentFile("job.plist").string();
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"load", path}},
                                                                  {"/bin/launchctl", {"unload", path}}}));
}

TEST(LaunchAgentOperations, StatusForwardsToTheSharedController) {
    LaunchControlTestHome home;
    home.processes.answerPipelinesWith("4242\n");
    EXPECT_EQ(status(LaunchAgent("com.example.job", "/usr/bin/true")), AgentStatus::running(4242));
    ASSERT_EQ(home.processes.pipelines().size(), 1u);
    EXPECT_EQ(home.processes.pipelines()[0][1], (Invocation{"/usr/bin/grep", {"com.example.job"}}));
}

}  // namespace
