#include "platform/doubles/EventLog.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>

#include "base/Diagnostics.hpp"

namespace {

using vornix::platform::doubles::EventLog;
using Entries = std::vector<std::string>;

TEST(EventLog, KeepsEventsInTheOrderRecorded) {
    EventLog log;
    log.record("first");
    log.record("second");
    EXPECT_EQ(log.entries(), (Entries{"first", "second"}));
    log.clear();
    EXPECT_TRUE(log.entries().empty());
}

TEST(EventLog, PrintedLinesTakeTheirPlaceAmongTheEvents) {
    EventLog log;
    log.captureOutput([&] {
        vornix::base::printLine("before");
        log.record("event");
        vornix::base::printLine("after");
        std::printf("unfinished");
    });
    EXPECT_EQ(log.entries(), (Entries{"stdout: before", "event", "stdout: after", "stdout: unfinished"}));
}

TEST(EventLog, StandardOutputComesBackAfterTheCapture) {
    EventLog log;
    log.captureOutput([] { vornix::base::printLine("inside"); });
    testing::internal::CaptureStdout();
    vornix::base::printLine("outside");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "outside\n");
    EXPECT_EQ(log.entries(), (Entries{"stdout: inside"}));
}

TEST(EventLog, AnExceptionEndsTheCaptureAndIsPassedOn) {
    EventLog log;
    EXPECT_THROW(log.captureOutput([] {
        vornix::base::printLine("then");
        throw std::runtime_error("stop");
    }),
                 std::runtime_error);
    EXPECT_EQ(log.entries(), (Entries{"stdout: then"}));
}

}  // namespace
