#include <gtest/gtest.h>

#include "launch_agent/MachService.hpp"
#include "launch_agent/PermissionBits.hpp"
#include "launch_agent/ProcessType.hpp"
#include "launch_agent/ResourceLimits.hpp"
#include "launch_agent/StartCalendarInterval.hpp"
#include "launch_agent/inetdCompatibility.hpp"
#include "launch_agent/tests/CodingTestSupport.hpp"

namespace {

using namespace vornix::launch_agent;
using namespace vornix::launch_agent::testing;
using vornix::plist::CodingPath;
using vornix::plist::Dictionary;
using vornix::plist::Value;
using Kind = vornix::plist::DecodingError::Kind;

TEST(MachServiceCoding, KeysAreTheCapitalisedMemberNames) {
    EXPECT_EQ(codingKey(MachService::CodingKeys::hideUntilCheckIn), "HideUntilCheckIn");
    EXPECT_EQ(codingKey(MachService::CodingKeys::resetAtClose), "ResetAtClose");
}

TEST(MachServiceCoding, BothFlagsFalseAreWrittenWithBothKeys) {
    EXPECT_EQ(encoded(MachService(false, false)), dictionary({{"HideUntilCheckIn", false}, {"ResetAtClose", false}}));
}

TEST(MachServiceCoding, DecodesBothFlags) {
    const auto service = decoded<MachService>(dictionary({{"HideUntilCheckIn", true}, {"ResetAtClose", false}}));
    EXPECT_TRUE(service->hideUntilCheckIn);
    EXPECT_FALSE(service->resetAtClose);
}

TEST(MachServiceCoding, AMissingFlagIsKeyNotFound) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<MachService>(dictionary({{"HideUntilCheckIn", true}}), &path), Kind::keyNotFound);
    EXPECT_EQ(path, CodingPath{"ResetAtClose"});
    EXPECT_EQ(decodingFailure<MachService>(dictionary({{"ResetAtClose", true}}), &path), Kind::keyNotFound);
    EXPECT_EQ(path, CodingPath{"HideUntilCheckIn"});
}

TEST(MachServiceCoding, AFlagOfTheWrongTypeIsTypeMismatch) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<MachService>(dictionary({{"HideUntilCheckIn", 1}, {"ResetAtClose", true}}), &path),
              Kind::typeMismatch);
    EXPECT_EQ(path, CodingPath{"HideUntilCheckIn"});
}

TEST(inetdCompatibilityCoding, WaitIsAlwaysWritten) {
    EXPECT_EQ(codingKey(inetdCompatibility::CodingKeys::wait), "Wait");
    EXPECT_EQ(encoded(inetdCompatibility(false)), dictionary({{"Wait", false}}));
    EXPECT_EQ(encoded(inetdCompatibility(true)), dictionary({{"Wait", true}}));
}

TEST(inetdCompatibilityCoding, WaitIsRequired) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<inetdCompatibility>(dictionary({{"wait", true}}), &path), Kind::keyNotFound);
    EXPECT_EQ(path, CodingPath{"Wait"});
    EXPECT_EQ(decodingFailure<inetdCompatibility>(dictionary({{"Wait", "true"}}), &path), Kind::typeMismatch);
    EXPECT_TRUE(decoded<inetdCompatibility>(dictionary({{"Wait", true}}))->wait);
}

TEST(ResourceLimitsCoding, KeysKeepCpuInCapitals) {
    const std::pair<ResourceLimits::CodingKeys, std::string_view> expected[] = {
        {ResourceLimits::CodingKeys::cpu, "CPU"},
        {ResourceLimits::CodingKeys::core, "Core"},
        {ResourceLimits::CodingKeys::data, "Data"},
        {ResourceLimits::CodingKeys::fileSize, "FileSize"},
        {ResourceLimits::CodingKeys::memoryLock, "MemoryLock"},
        {ResourceLimits::CodingKeys::numberOfFiles, "NumberOfFiles"},
        {ResourceLimits::CodingKeys::numberOfProcesses, "NumberOfProcesses"},
        {ResourceLimits::CodingKeys::residentSetSize, "ResidentSetSize"},
        {ResourceLimits::CodingKeys::stack, "Stack"},
    };
    for (const auto& [key, text] : expected) {
        EXPECT_EQ(codingKey(key), text);
    }
}

TEST(ResourceLimitsCoding, OnlyNumberOfFilesSetIsWrittenAsThatSingleKey) {
    ResourceLimits limits;
    limits.numberOfFiles = 256;
    EXPECT_EQ(encoded(limits), dictionary({{"NumberOfFiles", 256}}));
}

TEST(ResourceLimitsCoding, NothingSetIsWrittenAsAnEmptyDictionary) {
    EXPECT_EQ(encoded(ResourceLimits()), Dictionary());
}

TEST(ResourceLimitsCoding, EveryLimitRoundTripsIncludingZeroAndNegative) {
    const ResourceLimits limits(0, -1, 3, 4, 5, 6, 7, 8, 9);
    const Dictionary written = encoded(limits);
    EXPECT_EQ(written, dictionary({{"CPU", 0},
                                   {"Core", -1},
                                   {"Data", 3},
                                   {"FileSize", 4},
                                   {"MemoryLock", 5},
                                   {"NumberOfFiles", 6},
                                   {"NumberOfProcesses", 7},
                                   {"ResidentSetSize", 8},
                                   {"Stack", 9}}));
    EXPECT_EQ(encoded(*decoded<ResourceLimits>(written)), written);
}

TEST(ResourceLimitsCoding, MissingKeysLeaveLimitsAbsentAndUnknownKeysAreIgnored) {
    const auto limits = decoded<ResourceLimits>(dictionary({{"Cpu", 5}, {"Stack", 1}}));
    EXPECT_EQ(limits->cpu, std::nullopt);
    EXPECT_EQ(limits->stack, 1);
    EXPECT_EQ(encoded(*limits), dictionary({{"Stack", 1}}));
}

TEST(ResourceLimitsCoding, ALimitOfTheWrongTypeIsTypeMismatch) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<ResourceLimits>(dictionary({{"CPU", "unlimited"}}), &path), Kind::typeMismatch);
    EXPECT_EQ(path, CodingPath{"CPU"});
}

TEST(StartCalendarIntervalCoding, KeysAreTheCapitalisedMemberNames) {
    EXPECT_EQ(codingKey(StartCalendarInterval::CodingKeys::month), "Month");
    EXPECT_EQ(codingKey(StartCalendarInterval::CodingKeys::weekday), "Weekday");
    EXPECT_EQ(codingKey(StartCalendarInterval::CodingKeys::day), "Day");
    EXPECT_EQ(codingKey(StartCalendarInterval::CodingKeys::hour), "Hour");
    EXPECT_EQ(codingKey(StartCalendarInterval::CodingKeys::minute), "Minute");
}

TEST(StartCalendarIntervalCoding, MayIsWrittenAsFiveUnderMonth) {
    EXPECT_EQ(encoded(StartCalendarInterval(StartMonth::may)), dictionary({{"Month", 5}}));
}

TEST(StartCalendarIntervalCoding, ConstructedDayFortyIsKeptAndWritten) {
    const StartCalendarInterval interval(std::nullopt, std::nullopt, 40);
    EXPECT_EQ(interval.day, 40);
    EXPECT_EQ(encoded(interval), dictionary({{"Day", 40}}));
}

TEST(StartCalendarIntervalCoding, DecodedDayFortyIsKept) {
    const auto interval = decoded<StartCalendarInterval>(dictionary({{"Day", 40}, {"Hour", 99}, {"Minute", -3}}));
    EXPECT_EQ(interval->day, 40);
    EXPECT_EQ(interval->hour, 99);
    EXPECT_EQ(interval->minute, -3);
}

TEST(StartCalendarIntervalCoding, WeekdayZeroFailsAsDataCorrupted) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<StartCalendarInterval>(dictionary({{"Weekday", 0}}), &path), Kind::dataCorrupted);
    EXPECT_EQ(path, CodingPath{"Weekday"});
}

TEST(StartCalendarIntervalCoding, WeekdaySevenDecodesToSunday) {
    EXPECT_EQ(decoded<StartCalendarInterval>(dictionary({{"Weekday", 7}}))->weekday, StartWeekday::sunday);
}

TEST(StartCalendarIntervalCoding, MonthsOutsideOneToTwelveFailAsDataCorrupted) {
    EXPECT_EQ(decodingFailure<StartCalendarInterval>(dictionary({{"Month", 0}})), Kind::dataCorrupted);
    EXPECT_EQ(decodingFailure<StartCalendarInterval>(dictionary({{"Month", 13}})), Kind::dataCorrupted);
    EXPECT_EQ(decoded<StartCalendarInterval>(dictionary({{"Month", 12}}))->month, StartMonth::december);
}

TEST(StartCalendarIntervalCoding, WeekdayEightFailsAsDataCorrupted) {
    EXPECT_EQ(decodingFailure<StartCalendarInterval>(dictionary({{"Weekday", 8}})), Kind::dataCorrupted);
}

TEST(StartCalendarIntervalCoding, AMonthOfTheWrongTypeIsTypeMismatch) {
    CodingPath path;
    EXPECT_EQ(decodingFailure<StartCalendarInterval>(dictionary({{"Month", "May"}}), &path), Kind::typeMismatch);
    EXPECT_EQ(path, CodingPath{"Month"});
    EXPECT_EQ(decodingFailure<StartCalendarInterval>(dictionary({{"Minute", true}}), &path), Kind::typeMismatch);
    EXPECT_EQ(path, CodingPath{"Minute"});
}

TEST(StartCalendarIntervalCoding, AnEmptyIntervalIsAnEmptyDictionaryBothWays) {
    EXPECT_EQ(encoded(StartCalendarInterval()), Dictionary());
    const auto interval = decoded<StartCalendarInterval>(Dictionary());
    EXPECT_EQ(interval->month, std::nullopt);
    EXPECT_EQ(interval->day, std::nullopt);
}

TEST(StartCalendarIntervalCoding, EveryMemberRoundTripsIncludingZero) {
    const Dictionary written = dictionary({{"Month", 1}, {"Weekday", 1}, {"Day", 1}, {"Hour", 0}, {"Minute", 0}});
    const auto interval = decoded<StartCalendarInterval>(written);
    EXPECT_EQ(interval->month, StartMonth::january);
    EXPECT_EQ(interval->weekday, StartWeekday::monday);
    EXPECT_EQ(encoded(*interval), written);
}

TEST(ProcessTypeCoding, InteractiveDecodesAndLowerCaseFails) {
    EXPECT_EQ(vornix::plist::decodeValue<ProcessType>(Value("Interactive")), ProcessType::interactive);
    try {
        vornix::plist::decodeValue<ProcessType>(Value("interactive"));
        ADD_FAILURE() << "lower-case \"interactive\" decoded";
    } catch (const vornix::plist::DecodingError& error) {
        EXPECT_EQ(error.kind(), Kind::dataCorrupted);
    }
}

TEST(ProcessTypeCoding, IsWrittenAsItsText) {
    EXPECT_EQ(vornix::plist::encodeValue(ProcessType::adaptive), Value("Adaptive"));
}

TEST(PermissionBitsCoding, IsWrittenAndReadAsItsBareRawValue) {
    EXPECT_EQ(vornix::plist::encodeValue(PermissionBits{PermissionBits::read, PermissionBits::execute}), Value(5));
    EXPECT_EQ(vornix::plist::decodeValue<PermissionBits>(Value(12)), PermissionBits(12));
    EXPECT_THROW(vornix::plist::decodeValue<PermissionBits>(Value("rwx")), vornix::plist::TypeMismatch);
}

}  // namespace
