#include "platform/ChildReaper.hpp"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/PosixProcesses.hpp"
#include "platform/Spawn.hpp"
#include "platform/doubles/ProcessTable.hpp"

extern char** environ;

namespace {

using namespace std::chrono_literals;
using vornix::platform::Invocation;
using vornix::platform::PosixProcesses;
using vornix::platform::doubles::childrenOfThisProcess;
using vornix::platform::doubles::noChildrenWithin;
using vornix::platform::doubles::openDescriptors;
using vornix::platform::doubles::zombieChildren;

TEST(ChildReaper, AThousandFireAndForgetChildrenLeaveNoZombieAndNoDescriptor) {
    PosixProcesses processes;
    const std::size_t descriptorsBefore = openDescriptors();
    for (int child = 0; child < 1000; ++child) {
        processes.launch({"/bin/true", {}});
    }
    EXPECT_TRUE(noChildrenWithin(60s));
    EXPECT_EQ(zombieChildren(), 0u);
    EXPECT_EQ(openDescriptors(), descriptorsBefore);
}

TEST(ChildReaper, ManyPipelinesLeaveNoZombieAndNoDescriptor) {
    PosixProcesses processes;
    const std::size_t descriptorsBefore = openDescriptors();
    const std::vector<Invocation> stages{
        {"/usr/bin/printf", {"-\tjob\n"}}, {"/usr/bin/grep", {"job"}}, {"/usr/bin/cut", {"-f1"}}};
    for (int run = 0; run < 300; ++run) {
        ASSERT_EQ(processes.runPipeline(stages), "-\n");
    }
    EXPECT_TRUE(noChildrenWithin(60s));
    EXPECT_EQ(openDescriptors(), descriptorsBefore);
}

TEST(ChildReaper, AChildStartedByOtherCodeIsLeftForThatCodeToWaitFor) {
    pid_t own = 0;
    char shell[] = "/bin/sh";
    char command[] = "-c";
    char script[] = "exit 7";
    char* argv[] = {shell, command, script, nullptr};
    ASSERT_EQ(::posix_spawn(&own, shell, nullptr, nullptr, argv, environ), 0);

    PosixProcesses processes;
    for (int child = 0; child < 50; ++child) {
        processes.launch({"/bin/true", {}});
    }
    // Wait until the port's children are gone and ours is the only one left, a zombie.
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    for (;;) {
        const auto children = childrenOfThisProcess();
        if (children.size() == 1 && children.front().pid == own && children.front().state == 'Z') {
            break;
        }
        ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "children left: " << children.size();
        std::this_thread::sleep_for(5ms);
    }
    std::this_thread::sleep_for(300ms);  // longer than the reaper's longest pause

    int status = 0;
    ASSERT_EQ(::waitpid(own, &status, 0), own);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 7);
}

TEST(ChildReaper, NoSignalHandlerIsInstalledForChildren) {
    struct sigaction before {};
    ::sigaction(SIGCHLD, nullptr, &before);
    PosixProcesses().launch({"/bin/true", {}});
    EXPECT_TRUE(noChildrenWithin(30s));
    struct sigaction after {};
    ::sigaction(SIGCHLD, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
    EXPECT_EQ(after.sa_handler, SIG_DFL);
}

TEST(ChildReaper, AChildThatRunsLongIsReapedOnceItEnds) {
    PosixProcesses processes;
    processes.launch({"/bin/sleep", {"1"}});
    processes.launch({"/bin/true", {}});
    EXPECT_TRUE(noChildrenWithin(30s));
}

TEST(ChildReaper, AnAdoptedChildRunsUntilItEndsAndAStrangerNeverRuns) {
    const pid_t child = vornix::platform::spawnChild({"/bin/sleep", {"30"}}, {});
    vornix::platform::ChildReaper::shared().adopt(child);
    EXPECT_TRUE(vornix::platform::ChildReaper::shared().isRunning(child));
    EXPECT_FALSE(vornix::platform::ChildReaper::shared().isRunning(::getpid()));
    ::kill(child, SIGTERM);
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (vornix::platform::ChildReaper::shared().isRunning(child) && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(1ms);
    }
    EXPECT_FALSE(vornix::platform::ChildReaper::shared().isRunning(child));
}

}  // namespace
