#include "platform/doubles/ManualMainQueue.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

using vornix::platform::doubles::ManualMainQueue;

TEST(ManualMainQueue, AsyncWorkWaitsForTheQueueToRun) {
    ManualMainQueue queue;
    std::string log;
    queue.async([&] { log += "a"; });
    EXPECT_EQ(log, "");
    EXPECT_EQ(queue.runReady(), 1u);
    EXPECT_EQ(log, "a");
}

TEST(ManualMainQueue, DelayedWorkRunsAtItsDeadlineAndNotBefore) {
    ManualMainQueue queue;
    std::string log;
    queue.asyncAfter(1.0, [&] { log += "late"; });
    queue.advance(0.999);
    EXPECT_EQ(log, "");
    queue.advance(0.001);
    EXPECT_EQ(log, "late");
}

TEST(ManualMainQueue, WorkRunsInDeadlineOrderThenInQueueOrder) {
    ManualMainQueue queue;
    std::string log;
    queue.asyncAfter(2.0, [&] { log += "3"; });
    queue.async([&] { log += "1"; });
    queue.async([&] { log += "2"; });
    queue.advance(5.0);
    EXPECT_EQ(log, "123");
    EXPECT_DOUBLE_EQ(queue.now(), 5.0);
}

TEST(ManualMainQueue, WorkQueuedByRunningWorkIsTimedFromItsOwnDeadline) {
    ManualMainQueue queue;
    std::string log;
    queue.asyncAfter(1.0, [&] {
        log += "first";
        queue.async([&] { log += "+hop"; });
        queue.asyncAfter(1.0, [&] { log += "+second"; });
    });
    queue.advance(1.0);
    EXPECT_EQ(log, "first+hop");
    EXPECT_EQ(queue.pending(), 1u);
    queue.advance(1.0);
    EXPECT_EQ(log, "first+hop+second");
}

TEST(ManualMainQueue, OnlyTheMakingThreadIsMain) {
    ManualMainQueue queue;
    EXPECT_TRUE(queue.isMainThread());
    bool otherIsMain = true;
    std::thread([&] { otherIsMain = queue.isMainThread(); }).join();
    EXPECT_FALSE(otherIsMain);
}

TEST(ManualMainQueue, WorkQueuedFromAnotherThreadRunsOnTheMainThread) {
    ManualMainQueue queue;
    bool ranOnMain = false;
    std::thread([&] { queue.async([&] { ranOnMain = queue.isMainThread(); }); }).join();
    queue.runReady();
    EXPECT_TRUE(ranOnMain);
}

}  // namespace
