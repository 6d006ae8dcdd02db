#include "platform/doubles/RecordingProcesses.hpp"

#include <stdexcept>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

namespace {

using vornix::platform::Invocation;
using vornix::platform::doubles::RecordingProcesses;

TEST(RecordingProcesses, RecordsEveryLaunchInOrder) {
    RecordingProcesses processes;
    processes.launch({"/bin/launchctl", {"load", "/tmp/a.plist"}});
    processes.launch({"/bin/launchctl", {"start", "a"}});
    EXPECT_EQ(processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"load", "/tmp/a.plist"}},
                                                             {"/bin/launchctl", {"start", "a"}}}));
    EXPECT_TRUE(processes.pipelines().empty());
}

TEST(RecordingProcesses, AnswersPipelinesWithTheScriptedOutputAndRecordsThem) {
    RecordingProcesses processes;
    const std::vector<Invocation> stages{{"/bin/launchctl", {"list"}}, {"/usr/bin/cut", {"-f1"}}};
    EXPECT_EQ(processes.runPipeline(stages), "");
    processes.answerPipelinesWith("4242\n");
    EXPECT_EQ(processes.runPipeline(stages), "4242\n");
    EXPECT_EQ(processes.pipelines(), (std::vector<std::vector<Invocation>>{stages, stages}));
    EXPECT_TRUE(processes.launches().empty());
}

TEST(RecordingProcesses, AMissingToolFailsToStartAndIsNotRecorded) {
    RecordingProcesses processes;
    processes.treatAsMissing("/bin/launchctl");
    try {
        processes.launch({"/bin/launchctl", {"load", "x"}});
        FAIL() << "a missing tool must not start";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
    const std::vector<Invocation> stages{{"/bin/launchctl", {"list"}}};
    EXPECT_THROW(processes.runPipeline(stages), std::system_error);
    EXPECT_TRUE(processes.launches().empty());
    EXPECT_TRUE(processes.pipelines().empty());
}

TEST(RecordingProcesses, AnEmptyPipelineIsRefusedAsByTheRealPort) {
    RecordingProcesses processes;
    EXPECT_THROW(processes.runPipeline({}), std::invalid_argument);
}

}  // namespace
