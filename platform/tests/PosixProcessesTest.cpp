#include "platform/PosixProcesses.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/doubles/ProcessTable.hpp"
#include "platform/doubles/TemporaryFolder.hpp"

namespace {

using namespace std::chrono_literals;
using vornix::platform::Invocation;
using vornix::platform::PosixProcesses;
using vornix::platform::doubles::noChildrenWithin;
using vornix::platform::doubles::openDescriptors;
using vornix::platform::doubles::TemporaryFolder;

std::string run(std::vector<Invocation> stages) { return PosixProcesses().runPipeline(stages); }

std::string contentsWhenPresent(const std::filesystem::path& file) {
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    while (!std::filesystem::exists(file) && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(5ms);
    }
    std::ifstream stream(file);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

TEST(PosixProcesses, APipelineJoinsTheToolsAndReturnsTheLastOnesOutput) {
    EXPECT_EQ(run({{"/usr/bin/printf", {"12\tone\n-\ttwo.three\n7\tother\n"}},
                   {"/usr/bin/grep", {"two.three"}},
                   {"/usr/bin/cut", {"-f1"}}}),
              "-\n");
}

TEST(PosixProcesses, ASingleToolIsAPipelineOfOne) { EXPECT_EQ(run({{"/usr/bin/printf", {"alone"}}}), "alone"); }

TEST(PosixProcesses, WordsReachTheToolExactlyWithoutAShell) {
    EXPECT_EQ(run({{"/usr/bin/printf", {"%s|", "two words", "$HOME", "*", "a;b", ""}}}), "two words|$HOME|*|a;b||");
}

TEST(PosixProcesses, AToolWithNoOutputGivesEmptyText) {
    EXPECT_EQ(run({{"/usr/bin/printf", {"something\n"}}, {"/usr/bin/grep", {"nothing"}}}), "");
}

TEST(PosixProcesses, OutputLargerThanAPipeBufferIsReadToItsEnd) {
    std::string expected;
    for (int number = 1; number <= 200000; ++number) {
        expected += std::to_string(number) + "\n";
    }
    EXPECT_EQ(run({{"/usr/bin/seq", {"1", "200000"}}, {"/usr/bin/cut", {"-f1"}}}), expected);
}

TEST(PosixProcesses, AToolThatCannotBeStartedIsASystemErrorAndLeavesNothingBehind) {
    const std::size_t descriptorsBefore = openDescriptors();
    try {
        run({{"/usr/bin/printf", {"x\n"}}, {"/nonexistent/tool", {}}, {"/usr/bin/cut", {"-f1"}}});
        FAIL() << "a missing tool must be reported";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
        EXPECT_NE(std::string(error.what()).find("/nonexistent/tool"), std::string::npos) << error.what();
    }
    EXPECT_TRUE(noChildrenWithin(30s));
    EXPECT_EQ(openDescriptors(), descriptorsBefore);
}

TEST(PosixProcesses, LaunchingAMissingToolIsASystemError) {
    EXPECT_THROW(PosixProcesses().launch({"/nonexistent/tool", {"load"}}), std::system_error);
}

TEST(PosixProcesses, ARelativeToolPathIsRefused) {
    EXPECT_THROW(PosixProcesses().launch({"true", {}}), std::invalid_argument);
    EXPECT_THROW(run({{"printf", {"x"}}}), std::invalid_argument);
}

TEST(PosixProcesses, AnEmptyPipelineIsRefused) { EXPECT_THROW(run({}), std::invalid_argument); }

TEST(PosixProcesses, LaunchReturnsWhileTheToolStillRuns) {
    TemporaryFolder folder;
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    // cat blocks opening the FIFO until this test opens its other end, which happens only
    // after launch has returned: a launch that waited for the tool would never get here.
    PosixProcesses().launch({"/usr/bin/cat", {fifo.string()}});
    const int writer = ::open(fifo.c_str(), O_WRONLY);
    ASSERT_GE(writer, 0);
    ::close(writer);
    EXPECT_TRUE(noChildrenWithin(30s));
}

TEST(PosixProcesses, ALaunchedToolGetsItsArgumentsWordForWord) {
    TemporaryFolder folder;
    const auto out = folder.path() / "out";
    PosixProcesses().launch({"/bin/sh",
                             {"-c", "printf '%s|' \"$@\" > \"$0.part\" && mv \"$0.part\" \"$0\"", out.string(),
                              "load", "/a path/with blanks.plist", "*"}});
    EXPECT_EQ(contentsWhenPresent(out), "load|/a path/with blanks.plist|*|");
}

TEST(PosixProcesses, AChildInheritsNoDescriptorBeyondItsStandardStreams) {
    const int open = ::open("/dev/null", O_RDONLY);  // deliberately not close-on-exec
    ASSERT_GE(open, 0);
    const int high = ::dup2(open, 100);
    ASSERT_EQ(high, 100);
    const std::string listing = run({{"/bin/ls", {"/proc/self/fd"}}});
    ::close(open);
    ::close(high);
    EXPECT_NE(listing.find("0\n1\n2\n"), std::string::npos) << listing;
    EXPECT_EQ(listing.find("100"), std::string::npos) << listing;
}

TEST(PosixProcesses, AChildStartsWithDefaultSignalsAndNothingBlocked) {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    struct sigaction previous {};
    ::sigaction(SIGPIPE, &ignore, &previous);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    sigset_t previousMask;
    ::pthread_sigmask(SIG_BLOCK, &blocked, &previousMask);

    const std::string status = run({{"/usr/bin/grep", {"-E", "^Sig(Ign|Blk)", "/proc/self/status"}}});

    ::pthread_sigmask(SIG_SETMASK, &previousMask, nullptr);
    ::sigaction(SIGPIPE, &previous, nullptr);
    const auto mask = [&](const std::string& field) {
        const auto start = status.find(field + ":\t");
        EXPECT_NE(start, std::string::npos) << status;
        return std::stoull(status.substr(start + field.size() + 2, 16), nullptr, 16);
    };
    EXPECT_EQ(mask("SigBlk"), 0u);
    EXPECT_EQ(mask("SigIgn") & (1ull << (SIGPIPE - 1)), 0u) << status;
}

}  // namespace
