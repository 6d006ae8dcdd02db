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
        EXPECT_EQ(startMonthFromRawValue(index + 1), months[index]);
    }
}

TEST(StartMonth, ValuesOutsideTheTableHaveNoMonth) {
    EXPECT_EQ(startMonthFromRawValue(0), std::nullopt);
    EXPECT_EQ(startMonthFromRawValue(13), std::nullopt);
    EXPECT_EQ(startMonthFromRawValue(-5), std::nullopt);
}

TEST(StartWeekday, TheWeekStartsOnMondayAndSundayIsSeven) {
    const StartWeekday days[] = {StartWeekday::monday, StartWeekday::tuesday,  StartWeekday::wednesday,
                                 StartWeekday::thursday, StartWeekday::friday, StartWeekday::saturday,
                                 StartWeekday::sunday};
    for (std::int64_t index = 0; index < 7; ++index) {
        EXPECT_EQ(rawValue(days[index]), index + 1);
        EXPECT_EQ(startWeekdayFromRawValue(index + 1), days[index]);
    }
}

TEST(StartWeekday, ZeroIsNoWeekday) {
    EXPECT_EQ(startWeekdayFromRawValue(0), std::nullopt);
    EXPECT_EQ(startWeekdayFromRawValue(8), std::nullopt);
}

TEST(ProcessType, RawValuesAreTheCapitalisedWords) {
    EXPECT_EQ(rawValue(ProcessType::standard), "Standard");
    EXPECT_EQ(rawValue(ProcessType::background), "Background");
    EXPECT_EQ(rawValue(ProcessType::adaptive), "Adaptive");
    EXPECT_EQ(rawValue(ProcessType::interactive), "Interactive");
}

TEST(ProcessType, TextMatchesExactlyAndCaseSensitively) {
    EXPECT_EQ(processTypeFromRawValue("Interactive"), ProcessType::interactive);
    EXPECT_EQ(processTypeFromRawValue("Background"), ProcessType::background);
    EXPECT_EQ(processTypeFromRawValue("interactive"), std::nullopt);
    EXPECT_EQ(processTypeFromRawValue("Interactive "), std::nullopt);
    EXPECT_EQ(processTypeFromRawValue(""), std::nullopt);
}

TEST(ProcessType, ComparesAndHashesByValue) {
    const std::unordered_set<ProcessType> types{ProcessType::adaptive, ProcessType::adaptive, ProcessType::standard};
    EXPECT_EQ(types.size(), 2U);
    EXPECT_EQ(processTypeFromRawValue("Adaptive"), ProcessType::adaptive);
    EXPECT_NE(ProcessType::adaptive, ProcessType::standard);
}

}  // namespace
