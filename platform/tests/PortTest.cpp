#include "platform/MainQueue.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::platform::MainQueue;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::ManualMainQueue;

TEST(Port, AScopedInstallIsCurrentAndThePreviousServiceComesBack) {
    ManualMainQueue outer;
    ManualMainQueue inner;
    ScopedPort<MainQueue> first(&outer);
    {
        ScopedPort<MainQueue> second(&inner);
        EXPECT_EQ(&MainQueue::current(), &inner);
    }
    EXPECT_EQ(&MainQueue::current(), &outer);
    EXPECT_EQ(MainQueue::installed(), &outer);
}

TEST(PortDeathTest, AMissingServiceStopsTheProcessNamingIt) {
    ScopedPort<MainQueue> none(nullptr);
    EXPECT_EQ(MainQueue::installed(), nullptr);
    EXPECT_DEATH(MainQueue::current(), "Fatal error: main queue is not available");
}

}  // namespace
