#include "launch_agent/ClampedOptional.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Hour = vornix::launch_agent::ClampedOptional<0, 23>;

TEST(ClampedOptional, StartsAbsent) {
    const Hour hour;
    EXPECT_FALSE(hour.has_value());
    EXPECT_EQ(hour, std::nullopt);
}

TEST(ClampedOptional, AssignmentKeepsValuesInRange) {
    Hour hour;
    hour = 24;
    EXPECT_EQ(hour, 23);
    hour = -1;
    EXPECT_EQ(hour, 0);
    hour = 0;
    EXPECT_EQ(hour, 0);
    hour = 23;
    EXPECT_EQ(hour, 23);
    hour = std::optional<std::int64_t>(99);
    EXPECT_EQ(hour, 23);
}

TEST(ClampedOptional, AssigningAbsenceKeepsAbsence) {
    Hour hour;
    hour = 5;
    hour = std::nullopt;
    EXPECT_FALSE(hour.has_value());
    hour = std::optional<std::int64_t>();
    EXPECT_FALSE(hour.has_value());
}

TEST(ClampedOptional, StoreAsGivenDoesNotClamp) {
    Hour hour;
    hour.storeAsGiven(40);
    EXPECT_EQ(hour, 40);
    hour.storeAsGiven(std::nullopt);
    EXPECT_EQ(hour, std::nullopt);
}

TEST(ClampedOptional, InPlaceModificationClamps) {
    Hour hour;
    hour = 20;
    hour += 10;
    EXPECT_EQ(hour, 23);
    hour -= 30;
    EXPECT_EQ(hour, 0);
    hour.modify([](std::optional<std::int64_t>& value) { value = *value + 100; });
    EXPECT_EQ(hour, 23);
}

TEST(ClampedOptional, ModifyClampsAnUnclampedStoredValue) {
    Hour hour;
    hour.storeAsGiven(40);
    hour.modify([](std::optional<std::int64_t>&) {});
    EXPECT_EQ(hour, 23);
}

TEST(ClampedOptional, CompoundAssignmentOnAbsenceKeepsAbsence) {
    Hour hour;
    hour += 3;
    EXPECT_FALSE(hour.has_value());
    hour.modify([](std::optional<std::int64_t>& value) { value = 30; });
    EXPECT_EQ(hour, 23);
}

TEST(ClampedOptional, CopyAssignmentClampsLikeAnyAssignment) {
    Hour source;
    source.storeAsGiven(40);
    const Hour copy(source);
    EXPECT_EQ(copy, 40);
    Hour assigned;
    assigned = source;
    EXPECT_EQ(assigned, 23);
}

TEST(ClampedOptional, ReadsLikeAnOptional) {
    Hour hour;
    hour = 7;
    const std::optional<std::int64_t> read = hour;
    EXPECT_EQ(read, 7);
    EXPECT_EQ(*hour, 7);
    EXPECT_EQ(hour.value(), 7);
    EXPECT_TRUE(static_cast<bool>(hour));
    EXPECT_EQ(hour.get(), std::optional<std::int64_t>(7));
}

TEST(ClampedOptionalDeathTest, AnOverflowingInPlaceSumIsFatal) {
    vornix::launch_agent::ClampedOptional<0, std::numeric_limits<std::int64_t>::max()> count;
    count = std::numeric_limits<std::int64_t>::max();
    EXPECT_DEATH(count += 1, "^Fatal error: arithmetic overflow: 9223372036854775807 \\+ 1\n$");
}

}  // namespace
