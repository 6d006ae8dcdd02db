#include "launch_agent/StringExtensions.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::launch_agent::characterAt;

TEST(StringExtensions, PicksTheCharacterAtAnOffsetFromTheStart) {
    EXPECT_EQ(characterAt("755", 0), "7");
    EXPECT_EQ(characterAt("755", 1), "5");
    EXPECT_EQ(characterAt("0-7", 1), "-");
}

TEST(StringExtensions, CountsCharactersNotBytes) {
    EXPECT_EQ(characterAt("\xC3\xA9t\xC3\xA9", 0), "\xC3\xA9");
    EXPECT_EQ(characterAt("\xC3\xA9t\xC3\xA9", 1), "t");
    EXPECT_EQ(characterAt("\xC3\xA9t\xC3\xA9", 2), "\xC3\xA9");
}

TEST(StringExtensionsDeathTest, AnOffsetPastTheEndIsFatal) {
    EXPECT_DEATH(characterAt("755", 3), "^Fatal error: character offset 3 is outside the text \"755\"\n$");
}

TEST(StringExtensionsDeathTest, ANegativeOffsetIsFatal) {
    EXPECT_DEATH(characterAt("755", -1), "^Fatal error: character offset -1 is outside the text \"755\"\n$");
}

TEST(StringExtensionsDeathTest, AnyOffsetIntoAnEmptyTextIsFatal) {
    EXPECT_DEATH(characterAt("", 0), "^Fatal error: character offset 0 is outside the text \"\"\n$");
}

}  // namespace
