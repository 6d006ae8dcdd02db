#include "platform/doubles/RedirectingProcesses.hpp"

#include <vector>

#include <gtest/gtest.h>

#include "platform/PosixProcesses.hpp"
#include "platform/doubles/RecordingProcesses.hpp"
#include "platform/doubles/TemporaryFolder.hpp"

namespace {

using vornix::platform::Invocation;
using vornix::platform::PosixProcesses;
using vornix::platform::doubles::RecordingProcesses;
using vornix::platform::doubles::RedirectingProcesses;
using vornix::platform::doubles::TemporaryFolder;

TEST(RedirectingProcesses, AMappedToolRunsAsItsStandInWithTheSameArguments) {
    RecordingProcesses target;
    RedirectingProcesses processes(target, {{"/bin/launchctl", "/tmp/stand-in"}});
    processes.launch({"/bin/launchctl", {"load", "/x.plist"}});
    processes.launch({"/usr/bin/grep", {"a"}});
    EXPECT_EQ(target.launches(),
              (std::vector<Invocation>{{"/tmp/stand-in", {"load", "/x.plist"}}, {"/usr/bin/grep", {"a"}}}));

    const std::vector<Invocation> stages{{"/bin/launchctl", {"list"}}, {"/usr/bin/cut", {"-f1"}}};
    processes.runPipeline(stages);
    EXPECT_EQ(target.pipelines(), (std::vector<std::vector<Invocation>>{
                                      {{"/tmp/stand-in", {"list"}}, {"/usr/bin/cut", {"-f1"}}}}));
}

TEST(RedirectingProcesses, AStandInScriptTakesPartInARealPipeline) {
    TemporaryFolder folder;
    const auto standIn = folder.writeExecutable("launchctl", "#!/bin/sh\nprintf '%s\\t0\\tcom.example.%s\\n' 77 \"$1\"\n");
    PosixProcesses real;
    RedirectingProcesses processes(real, {{"/bin/launchctl", standIn.string()}});
    const std::vector<Invocation> stages{
        {"/bin/launchctl", {"list"}}, {"/usr/bin/grep", {"com.example.list"}}, {"/usr/bin/cut", {"-f1"}}};
    EXPECT_EQ(processes.runPipeline(stages), "77\n");
}

}  // namespace
