#include "host/SplitFields.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::host::splitFields;
using Fields = std::vector<std::string_view>;

TEST(SplitFields, KeepsEmptyFieldsAtBothEndsAndBetween) {
    EXPECT_EQ(splitFields("&a&&b&", '&'), (Fields{"", "a", "", "b", ""}));
}

TEST(SplitFields, GivesOneEmptyFieldForEmptyText) { EXPECT_EQ(splitFields("", '='), (Fields{""})); }

TEST(SplitFields, GivesTheWholeTextWithoutSeparator) { EXPECT_EQ(splitFields("user", '='), (Fields{"user"})); }

TEST(SplitFields, SplitsAtEverySeparatorNotOnlyTheFirst) {
    EXPECT_EQ(splitFields("user=a=b", '='), (Fields{"user", "a", "b"}));
}

}  // namespace
