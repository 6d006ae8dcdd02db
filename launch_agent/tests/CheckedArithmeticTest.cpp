#include "launch_agent/CheckedArithmetic.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace vornix::launch_agent;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(CheckedArithmetic, GivesExactResultsInRange) {
    EXPECT_EQ(checkedAdd(largest - 1, 1), largest);
    EXPECT_EQ(checkedSubtract(smallest + 1, 1), smallest);
    EXPECT_EQ(checkedMultiply(-7, 64), -448);
}

TEST(CheckedArithmeticDeathTest, AnOverflowingSumIsFatal) {
    EXPECT_DEATH(checkedAdd(largest, 1), "^Fatal error: arithmetic overflow: 9223372036854775807 \\+ 1\n$");
}

TEST(CheckedArithmeticDeathTest, AnOverflowingDifferenceIsFatal) {
    EXPECT_DEATH(checkedSubtract(7, smallest), "^Fatal error: arithmetic overflow: 7 - -9223372036854775808\n$");
}

TEST(CheckedArithmeticDeathTest, AnOverflowingProductIsFatal) {
    EXPECT_DEATH(checkedMultiply(largest, 64), "^Fatal error: arithmetic overflow: 9223372036854775807 \\* 64\n$");
}

}  // namespace
