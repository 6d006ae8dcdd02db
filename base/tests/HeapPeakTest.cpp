#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "base/doubles/HeapPeak.hpp"

namespace {

using vornix::testing::heapPeakBytes;
using vornix::testing::resetHeapPeak;

TEST(HeapPeak, CountsTheMostHeldAtOnceSinceTheReset) {
    const auto kept = std::make_unique<char[]>(1000);
    resetHeapPeak();
    EXPECT_EQ(heapPeakBytes(), 0u);
    {
        std::vector<char> first(100000);
        std::vector<char> second(50000);
    }
    std::vector<char> third(120000);
    EXPECT_GE(heapPeakBytes(), 150000u);
    EXPECT_LT(heapPeakBytes(), 160000u);
}

}  // namespace
