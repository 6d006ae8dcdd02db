#include <gtest/gtest.h>

#include "launch_agent/MachService.hpp"
#include "launch_agent/ResourceLimits.hpp"
#include "launch_agent/StartCalendarInterval.hpp"
#include "launch_agent/inetdCompatibility.hpp"

namespace {

using namespace vornix::launch_agent;

TEST(MachService, ConstructorStoresBothFlags) {
    MachService service(true, false);
    EXPECT_TRUE(service.hideUntilCheckIn);
    EXPECT_FALSE(service.resetAtClose);
    service.resetAtClose = true;
    EXPECT_TRUE(service.resetAtClose);
}

TEST(inetdCompatibility, ConstructorStoresWait) {
    inetdCompatibility compatibility(true);
    EXPECT_TRUE(compatibility.wait);
    compatibility.wait = false;
    EXPECT_FALSE(compatibility.wait);
}

TEST(ResourceLimits, ConstructorStoresTheNineLimitsInOrder) {
    const ResourceLimits limits(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ(limits.cpu, 1);
    EXPECT_EQ(limits.core, 2);
    EXPECT_EQ(limits.data, 3);
    EXPECT_EQ(limits.fileSize, 4);
    EXPECT_EQ(limits.memoryLock, 5);
    EXPECT_EQ(limits.numberOfFiles, 6);
    EXPECT_EQ(limits.numberOfProcesses, 7);
    EXPECT_EQ(limits.residentSetSize, 8);
    EXPECT_EQ(limits.stack, 9);
}

TEST(ResourceLimits, LimitsAreAbsentUnlessGivenAndAcceptAnyInteger) {
    ResourceLimits limits;
    EXPECT_EQ(limits.cpu, std::nullopt);
    EXPECT_EQ(limits.stack, std::nullopt);
    limits.numberOfFiles = -1;
    EXPECT_EQ(limits.numberOfFiles, -1);
}

TEST(StartCalendarInterval, ConstructedEmptyEveryMemberIsAbsent) {
    const StartCalendarInterval interval;
    EXPECT_EQ(interval.month, std::nullopt);
    EXPECT_EQ(interval.weekday, std::nullopt);
    EXPECT_EQ(interval.day, std::nullopt);
    EXPECT_EQ(interval.hour, std::nullopt);
    EXPECT_EQ(interval.minute, std::nullopt);
}

TEST(StartCalendarInterval, ConstructorStoresValuesAsGivenWithoutClamping) {
    const StartCalendarInterval interval(StartMonth::may, StartWeekday::sunday, 40, 24, -1);
    EXPECT_EQ(interval.month, StartMonth::may);
    EXPECT_EQ(interval.weekday, StartWeekday::sunday);
    EXPECT_EQ(interval.day, 40);
    EXPECT_EQ(interval.hour, 24);
    EXPECT_EQ(interval.minute, -1);
}

TEST(StartCalendarInterval, AssigningDayKeepsItInOneToThirtyOne) {
    StartCalendarInterval interval;
    interval.day = 0;
    EXPECT_EQ(interval.day, 1);
    interval.day = 32;
    EXPECT_EQ(interval.day, 31);
    interval.day = 1;
    EXPECT_EQ(interval.day, 1);
    interval.day = 31;
    EXPECT_EQ(interval.day, 31);
}

TEST(StartCalendarInterval, AssigningHourKeepsItInZeroToTwentyThree) {
    StartCalendarInterval interval;
    interval.hour = 24;
    EXPECT_EQ(interval.hour, 23);
    interval.hour = -1;
    EXPECT_EQ(interval.hour, 0);
    interval.hour = 12;
    EXPECT_EQ(interval.hour, 12);
}

TEST(StartCalendarInterval, AssigningMinuteKeepsItInZeroToFiftyNine) {
    StartCalendarInterval interval;
    interval.minute = 60;
    EXPECT_EQ(interval.minute, 59);
    interval.minute = -30;
    EXPECT_EQ(interval.minute, 0);
    interval.minute = 59;
    EXPECT_EQ(interval.minute, 59);
}

TEST(StartCalendarInterval, AssigningAbsenceKeepsAbsence) {
    StartCalendarInterval interval(std::nullopt, std::nullopt, 3, 4, 5);
    interval.day = std::nullopt;
    interval.hour = std::nullopt;
    interval.minute = std::nullopt;
    EXPECT_EQ(interval.day, std::nullopt);
    EXPECT_EQ(interval.hour, std::nullopt);
    EXPECT_EQ(interval.minute, std::nullopt);
}

TEST(StartCalendarInterval, InPlaceModificationClamps) {
    StartCalendarInterval interval(std::nullopt, std::nullopt, 40, 24, 60);
    interval.day += 0;
    interval.hour -= 100;
    interval.minute.modify([](std::optional<std::int64_t>& minute) { *minute += 1; });
    EXPECT_EQ(interval.day, 31);
    EXPECT_EQ(interval.hour, 0);
    EXPECT_EQ(interval.minute, 59);
}

TEST(StartCalendarInterval, NoCalendarCheckAgainstTheMonth) {
    StartCalendarInterval interval(StartMonth::february);
    interval.day = 31;
    EXPECT_EQ(interval.day, 31);
}

}  // namespace
