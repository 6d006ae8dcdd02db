// Launch control with real processes: the machine's own /usr/bin/grep and /usr/bin/cut behind a
// stand-in for the job manager, a script in a temporary folder that prints a chosen list.

#include <chrono>
#include <string>

#include <gtest/gtest.h>

#include "launch_agent/LaunchControl.hpp"
#include "launch_agent/StartAtLogin.hpp"
#include "launch_agent/tests/StandInJobManager.hpp"
#include "platform/PosixProcesses.hpp"
#include "platform/doubles/FixedDirectories.hpp"
#include "platform/doubles/ProcessTable.hpp"
#include "platform/doubles/RedirectingProcesses.hpp"
#include "platform/doubles/TemporaryFolder.hpp"

namespace {

using namespace std::chrono_literals;
using vornix::launch_agent::AgentStatus;
using vornix::launch_agent::LaunchAgent;
using vornix::launch_agent::LaunchControl;
using vornix::launch_agent::StartAtLogin;
using vornix::launch_agent::testing::StandInJobManager;
using vornix::platform::Directories;
using vornix::platform::PosixProcesses;
using vornix::platform::Processes;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::FixedDirectories;
using vornix::platform::doubles::RedirectingProcesses;
using vornix::platform::doubles::TemporaryFolder;

// The processes port for one test: real tools, with the stand-in in place of the job manager.
class WithStandIn {
public:
    explicit WithStandIn(const std::string& listing)
        : jobManager_(listing), processes_(real_, {{"/bin/launchctl", jobManager_.tool().string()}}), port_(&processes_) {}

private:
    StandInJobManager jobManager_;
    PosixProcesses real_;
    RedirectingProcesses processes_;
    ScopedPort<Processes> port_;
};

constexpr const char* listHeader = "PID\tStatus\tLabel\n";

AgentStatus statusWithListing(const std::string& listing, const std::string& label = "com.vornix.os.launch") {
    WithStandIn jobManager(listing);
    return LaunchControl::shared().status(LaunchAgent(label, "/usr/bin/true"));
}

TEST(StatusPipeline, ADashInTheFirstColumnIsLoaded) {
    EXPECT_EQ(statusWithListing(std::string(listHeader) + "-\t0\tcom.vornix.os.launch\n312\t0\tcom.other.job\n"),
              AgentStatus::loaded());
}

TEST(StatusPipeline, NoMatchingLineIsUnloaded) {
    EXPECT_EQ(statusWithListing(std::string(listHeader) + "312\t0\tcom.other.job\n"), AgentStatus::unloaded());
    EXPECT_EQ(statusWithListing(""), AgentStatus::unloaded());
}

TEST(StatusPipeline, APidInTheFirstColumnIsRunning) {
    EXPECT_EQ(statusWithListing(std::string(listHeader) + "-\t0\tcom.other.job\n4242\t0\tcom.vornix.os.launch\n"),
              AgentStatus::running(4242));
}

TEST(StatusPipeline, ALabelWithDotsMatchesLoosely) {
    EXPECT_EQ(statusWithListing(std::string(listHeader) + "77\t0\tcomXvornixYosZlaunch\n"), AgentStatus::running(77));
    EXPECT_EQ(statusWithListing(std::string(listHeader) + "-\t0\tapplication.com.vornix.os.launch.helper\n"),
              AgentStatus::loaded());
}

TEST(StatusPipeline, AJobManagerThatCannotBeStartedReadsAsUnloaded) {
    PosixProcesses real;
    RedirectingProcesses processes(real, {{"/bin/launchctl", "/nonexistent/launchctl"}});
    ScopedPort<Processes> port(&processes);
    EXPECT_EQ(LaunchControl::shared().status(LaunchAgent("com.vornix.os.launch", "/usr/bin/true")),
              AgentStatus::unloaded());
}

TEST(StatusPipelineDeathTest, TwoMatchingLinesStopTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(statusWithListing(std::string(listHeader) +
                                   "123\t0\tcom.vornix.os.launch\n-\t0\tcom.vornix.os.launch.helper\n"),
                 "Fatal error: .*com\\.vornix\\.os\\.launch: \"123\\\\n-\"");
}

TEST(StartAtLoginToggles, AThousandTogglesLeaveNoZombieAndNoDescriptor) {
    TemporaryFolder home;
    std::filesystem::create_directories(home.path() / "Library" / "LaunchAgents");
    FixedDirectories directories(home.path() / "Library");
    ScopedPort<Directories> directoriesPort(&directories);
    PosixProcesses real;
    RedirectingProcesses processes(real, {{"/bin/launchctl", "/bin/true"}});
    ScopedPort<Processes> processesPort(&processes);

    const std::size_t descriptorsBefore = vornix::platform::doubles::openDescriptors();
    StartAtLogin startAtLogin;
    testing::internal::CaptureStdout();
    for (int toggle = 0; toggle < 1000; ++toggle) {
        if (toggle % 2 == 0) {
            startAtLogin.loadLaunchAgent();
        } else {
            startAtLogin.unloadLaunchAgent();
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(vornix::platform::doubles::noChildrenWithin(60s));
    EXPECT_EQ(vornix::platform::doubles::zombieChildren(), 0u);
    EXPECT_EQ(vornix::platform::doubles::openDescriptors(), descriptorsBefore);
}

}  // namespace
