#include <gtest/gtest.h>

#include <unordered_set>

#include "launch_agent/ProcessType.hpp"
#include "launch_agent/StartMonth.hpp"
#include "launch_agent/StartWeekday.hpp"

namespace {

using namespace vornix::launch_agent;

TEST(StartMonth, RawValuesRunFromJanuaryOneToDecemberTwelve) {
    const StartMonth months[] = {StartMonth::january, StartMonth::february, StartMonth::march,
                                 StartMonth::april,   StartMonth::may,      StartMonth::june,
                                 StartMonth::july,    StartMonth::august,   StartMonth::september,
                                 StartMonth::october, StartMonth::november, StartMonth::december};
    for (std::int64_t index = 0; index < 12; ++index) {
        EXPECT_EQ(rawValue(months[index]), index + 1);
        EXPECT_EQ(fromRawValue<StartMonth>(index + 1), months[index]);
    }
}

TEST(StartMonth, ValuesOutsideTheTableHaveNoMonth) {
    EXPECT_EQ(fromRawValue<StartMonth>(0), std::nullopt);
    EXPECT_EQ(fromRawValue<StartMonth>(13), std::nullopt);
    EXPECT_EQ(fromRawValue<StartMonth>(-5), std::nullopt);
}

TEST(StartWeekday, TheWeekStartsOnMondayAndSundayIsSeven) {
    const StartWeekday days[] = {StartWeekday::monday,   StartWeekday::tuesday, StartWeekday::wednesday,
                                 StartWeekday::thursday, StartWeekday::friday,  StartWeekday::saturday,
                                 StartWeekday::sunday};
    for (std::int64_t index = 0; index < 7; ++index) {
        EXPECT_EQ(rawValue(days[index]), index + 1);
        EXPECT_EQ(fromRawValue<StartWeekday>(index + 1), days[index]);
    }
}

TEST(StartWeekday, ZeroIsNoWeekday) {
    EXPECT_EQ(fromRawValue<StartWeekday>(0), std::nullopt);
    EXPECT_EQ(fromRawValue<StartWeekday>(8), std::nullopt);
}

TEST(ProcessType, RawValuesAreTheCapitalisedWords) {
    EXPECT_EQ(rawValue(ProcessType::standard), "Standard");
    EXPECT_EQ(rawValue(ProcessType::background), "Background");
    EXPECT_EQ(rawValue(ProcessType::adaptive), "Adaptive");
    EXPECT_EQ(rawValue(ProcessType::interactive), "Interactive");
}

TEST(ProcessType, TextMatchesExactlyAndCaseSensitively) {
    EXPECT_EQ(fromRawValue<ProcessType>("Interactive"), ProcessType::interactive);
    EXPECT_EQ(fromRawValue<ProcessType>("Background"), ProcessType::background);
    EXPECT_EQ(fromRawValue<ProcessType>("interactive"), std::nullopt);
    EXPECT_EQ(fromRawValue<ProcessType>("Interactive "), std::nullopt);
    EXPECT_EQ(fromRawValue<ProcessType>(""), std::nullopt);
}

TEST(ProcessType, ComparesAndHashesByValue) {
    const std::unordered_set<ProcessType> types{ProcessType::adaptive, ProcessType::adaptive, ProcessType::standard};
    EXPECT_EQ(types.size(), 2U);
    EXPECT_EQ(fromRawValue<ProcessType>("Adaptive"), ProcessType::adaptive);
    EXPECT_NE(ProcessType::adaptive, ProcessType::standard);
}

}  // namespace
