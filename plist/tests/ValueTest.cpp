#include "plist/Value.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::plist::Array;
using vornix::plist::Dictionary;
using vornix::plist::Value;

TEST(Dictionary, KeepsKeysSortedAndTheLastOfARepeatedKey) {
    const Dictionary dictionary = Dictionary::fromEntries({{"b", 1}, {"a", 2}, {"b", 3}});
    ASSERT_EQ(dictionary.size(), 2u);
    EXPECT_EQ(dictionary.begin()->first, "a");
    EXPECT_EQ(*dictionary.find("b"), Value(3));
    EXPECT_EQ(dictionary.find("c"), nullptr);
}

TEST(Dictionary, SetInsertsInOrderOrReplaces) {
    Dictionary dictionary;
    dictionary.set("Label", "x");
    dictionary.set("Disabled", false);
    dictionary.set("Label", "y");
    ASSERT_EQ(dictionary.size(), 2u);
    EXPECT_EQ(dictionary.begin()->first, "Disabled");
    EXPECT_EQ(*dictionary.find("Label"), Value("y"));
}

TEST(Value, KindFollowsTheHeldType) {
    EXPECT_EQ(Value("text").kind(), Value::Kind::string);
    EXPECT_EQ(Value(std::int64_t{-5}).kind(), Value::Kind::integer);
    EXPECT_EQ(Value(0.5).kind(), Value::Kind::real);
    EXPECT_EQ(Value(true).kind(), Value::Kind::boolean);
    EXPECT_EQ(Value(Array{}).kind(), Value::Kind::array);
    EXPECT_EQ(Value(Dictionary{}).kind(), Value::Kind::dictionary);
    EXPECT_EQ(*Value(7).get<std::int64_t>(), 7);
    EXPECT_EQ(Value(7).get<std::string>(), nullptr);
}

TEST(Value, EqualityIsDeepAndTypeStrict) {
    EXPECT_EQ(Value(Array{1, "a"}), Value(Array{1, "a"}));
    EXPECT_NE(Value(1), Value(1.0));
    EXPECT_NE(Value(true), Value(1));
}

}  // namespace
