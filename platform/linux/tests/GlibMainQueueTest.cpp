#include "platform/linux/GlibMainQueue.hpp"

#include <chrono>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace vornix::platform::linux {
namespace {

// Each test owns a private context and iterates it by hand, so nothing else runs in between.
class GlibMainQueueTest : public ::testing::Test {
protected:
    GlibMainQueueTest() : context_(g_main_context_new()), queue_(context_) {}
    ~GlibMainQueueTest() override { g_main_context_unref(context_); }

    void drainReady() {
        while (g_main_context_iteration(context_, FALSE)) {
        }
    }

    // Iterates, blocking, until `done` holds or the bound passes; the bound only stops a broken
    // queue from hanging the suite.
    template <class Condition>
    bool iterateUntil(Condition done, std::chrono::milliseconds bound = std::chrono::seconds(5)) {
        const auto deadline = std::chrono::steady_clock::now() + bound;
        while (!done()) {
            if (std::chrono::steady_clock::now() > deadline) {
                return false;
            }
            g_main_context_iteration(context_, TRUE);
        }
        return true;
    }

    GMainContext* context_;
    GlibMainQueue queue_;
};

TEST_F(GlibMainQueueTest, AsyncRunsOnlyWhenTheContextIterates) {
    bool ran = false;
    queue_.async([&] { ran = true; });
    EXPECT_FALSE(ran);
    drainReady();
    EXPECT_TRUE(ran);
}

TEST_F(GlibMainQueueTest, AsyncWorkRunsInTheOrderQueued) {
    std::vector<int> order;
    for (int i = 0; i < 5; ++i) {
        queue_.async([&order, i] { order.push_back(i); });
    }
    drainReady();
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(GlibMainQueueTest, AsyncFromTheMainThreadInsideWorkRunsAfterTheCurrentWork) {
    std::vector<std::string> order;
    queue_.async([&] {
        queue_.async([&] { order.push_back("inner"); });
        order.push_back("outer");
    });
    drainReady();
    EXPECT_EQ(order, (std::vector<std::string>{"outer", "inner"}));
}

TEST_F(GlibMainQueueTest, AsyncFromAnotherThreadWakesTheContextAndRunsOnTheMainThread) {
    bool ranOnMain = false;
    bool ran = false;
    std::thread other([&] {
        queue_.async([&] {
            ranOnMain = queue_.isMainThread();
            ran = true;
        });
    });
    other.join();
    ASSERT_TRUE(iterateUntil([&] { return ran; }));
    EXPECT_TRUE(ranOnMain);
}

TEST_F(GlibMainQueueTest, IsMainThreadIsFalseOnOtherThreads) {
    EXPECT_TRUE(queue_.isMainThread());
    bool onOther = true;
    std::thread other([&] { onOther = queue_.isMainThread(); });
    other.join();
    EXPECT_FALSE(onOther);
}

TEST_F(GlibMainQueueTest, AsyncAfterRunsNotBeforeItsDelay) {
    const auto queued = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point ranAt;
    bool ran = false;
    queue_.asyncAfter(0.05, [&] {
        ranAt = std::chrono::steady_clock::now();
        ran = true;
    });
    drainReady();
    EXPECT_FALSE(ran);
    ASSERT_TRUE(iterateUntil([&] { return ran; }));
    EXPECT_GE(ranAt - queued, std::chrono::milliseconds(50));
}

TEST_F(GlibMainQueueTest, AsyncAfterWithTheSameDelayKeepsTheOrderQueued) {
    std::vector<int> order;
    for (int i = 0; i < 3; ++i) {
        queue_.asyncAfter(0.01, [&order, i] { order.push_back(i); });
    }
    ASSERT_TRUE(iterateUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
}

TEST_F(GlibMainQueueTest, AsyncAfterWithNoDelayStillWaitsForTheNextIteration) {
    bool ran = false;
    queue_.asyncAfter(0.0, [&] { ran = true; });
    EXPECT_FALSE(ran);
    ASSERT_TRUE(iterateUntil([&] { return ran; }));
}

TEST_F(GlibMainQueueTest, NoSourceStaysAttachedAfterTheWorkRan) {
    int runs = 0;
    queue_.async([&] { ++runs; });
    queue_.asyncAfter(0.001, [&] { ++runs; });
    ASSERT_TRUE(iterateUntil([&] { return runs == 2; }));
    drainReady();
    EXPECT_EQ(runs, 2);
    EXPECT_FALSE(g_main_context_pending(context_));
}

}  // namespace
}  // namespace vornix::platform::linux
