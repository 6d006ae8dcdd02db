#include "engine/EncodableValue.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace vornix::engine;

TEST(EncodableValue, ADefaultValueIsNull) {
    EXPECT_TRUE(EncodableValue().isNull());
    EXPECT_EQ(EncodableValue(nullptr).kind(), EncodableValue::Kind::null);
}

TEST(EncodableValue, EachConstructorGivesItsKind) {
    EXPECT_EQ(EncodableValue(true).kind(), EncodableValue::Kind::boolean);
    EXPECT_EQ(EncodableValue(std::int32_t{1}).kind(), EncodableValue::Kind::int32);
    EXPECT_EQ(EncodableValue(std::int64_t{1}).kind(), EncodableValue::Kind::int64);
    EXPECT_EQ(EncodableValue(1.0).kind(), EncodableValue::Kind::float64);
    EXPECT_EQ(EncodableValue("text").kind(), EncodableValue::Kind::string);
    EXPECT_EQ(EncodableValue(std::vector<std::uint8_t>{1}).kind(), EncodableValue::Kind::uint8List);
    EXPECT_EQ(EncodableValue(std::vector<std::int32_t>{1}).kind(), EncodableValue::Kind::int32List);
    EXPECT_EQ(EncodableValue(std::vector<std::int64_t>{1}).kind(), EncodableValue::Kind::int64List);
    EXPECT_EQ(EncodableValue(std::vector<float>{1}).kind(), EncodableValue::Kind::float32List);
    EXPECT_EQ(EncodableValue(std::vector<double>{1}).kind(), EncodableValue::Kind::float64List);
    EXPECT_EQ(EncodableValue(EncodableList{}).kind(), EncodableValue::Kind::list);
    EXPECT_EQ(EncodableValue(EncodableMap{}).kind(), EncodableValue::Kind::map);
}

TEST(EncodableValue, GetGivesTheContentOnlyForItsOwnType) {
    const EncodableValue value("text");
    ASSERT_NE(value.get<std::string>(), nullptr);
    EXPECT_EQ(*value.get<std::string>(), "text");
    EXPECT_EQ(value.get<bool>(), nullptr);
}

TEST(EncodableValue, Int32AndInt64OfTheSameNumberAreDifferentValues) {
    EXPECT_NE(EncodableValue(std::int32_t{5}), EncodableValue(std::int64_t{5}));
    EXPECT_NE(EncodableValue(EncodableMap{{std::int32_t{5}, 1}}), EncodableValue(EncodableMap{{std::int64_t{5}, 1}}));
    EXPECT_NE(EncodableValue(EncodableList{std::int32_t{5}}), EncodableValue(EncodableList{std::int64_t{5}}));
}

TEST(EncodableValue, DoublesCompareByTheirBits) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(EncodableValue(nan), EncodableValue(nan));
    EXPECT_NE(EncodableValue(0.0), EncodableValue(-0.0));
    EXPECT_EQ(EncodableValue(std::vector<float>{NAN}), EncodableValue(std::vector<float>{NAN}));
}

TEST(EncodableValue, OrderIsByKindThenContent) {
    EXPECT_LT(EncodableValue(), EncodableValue(false));
    EXPECT_LT(EncodableValue(std::int32_t{9}), EncodableValue(std::int64_t{1}));
    EXPECT_LT(EncodableValue("a"), EncodableValue("b"));
    EXPECT_LT(EncodableValue(EncodableList{1}), EncodableValue(EncodableList{1, 2}));
}

TEST(EncodableValue, SequencesOrderByTheirFirstDifferentElementThenByLength) {
    EXPECT_LT(EncodableValue(EncodableList{1, 9}), EncodableValue(EncodableList{2}));
    EXPECT_GT(EncodableValue(EncodableList{1, 0}), EncodableValue(EncodableList{1}));
    EXPECT_EQ(EncodableValue(EncodableList{1, "a"}), EncodableValue(EncodableList{1, "a"}));
    EXPECT_LT(EncodableValue(std::vector<std::int32_t>{1, 9}), EncodableValue(std::vector<std::int32_t>{2}));
    EXPECT_GT(EncodableValue(std::vector<double>{-0.0}), EncodableValue(std::vector<double>{0.0, 1.0}));
    EXPECT_LT(EncodableValue(std::vector<std::uint8_t>{}), EncodableValue(std::vector<std::uint8_t>{0}));
}

TEST(EncodableMap, KeepsInsertionOrder) {
    EncodableMap map;
    map.set("b", 1);
    map.set("a", 2);
    map.set(3, "c");
    std::vector<EncodableValue> keys;
    for (const auto& [key, value] : map) {
        keys.push_back(key);
    }
    EXPECT_EQ(keys, (std::vector<EncodableValue>{"b", "a", 3}));
}

TEST(EncodableMap, SettingAnExistingKeyReplacesItsValueInPlace) {
    EncodableMap map{{"a", 1}, {"b", 2}};
    map.set("a", 3);
    ASSERT_EQ(map.size(), 2u);
    EXPECT_EQ(map.begin()->first, EncodableValue("a"));
    EXPECT_EQ(map.begin()->second, EncodableValue(3));
}

TEST(EncodableMap, ARepeatedKeyKeepsItsFirstPlaceAndItsLastValue) {
    const EncodableMap map = EncodableMap::fromEntries({{"user", 1}, {"share", 2}, {"user", 3}, {"share", 4}, {"x", 5}});
    ASSERT_EQ(map.size(), 3u);
    auto entry = map.begin();
    EXPECT_EQ(*entry++, (EncodableMap::Entry{"user", 3}));
    EXPECT_EQ(*entry++, (EncodableMap::Entry{"share", 4}));
    EXPECT_EQ(*entry++, (EncodableMap::Entry{"x", 5}));
}

TEST(EncodableMap, FindsAnyKeyByValue) {
    const EncodableMap map{{"user", "U"}, {EncodableValue(EncodableList{1, 2}), true}, {std::int64_t{7}, 1.5}};
    ASSERT_NE(map.find("user"), nullptr);
    EXPECT_EQ(*map.find("user"), EncodableValue("U"));
    ASSERT_NE(map.find(EncodableValue(EncodableList{1, 2})), nullptr);
    EXPECT_EQ(*map.find(EncodableValue(std::int64_t{7})), EncodableValue(1.5));
    EXPECT_EQ(map.find(EncodableValue(7.0)), nullptr);
    EXPECT_EQ(map.find("absent"), nullptr);
}

TEST(EncodableMap, AnInt32AndAnInt64OfOneNumberAreOneKey) {
    const EncodableMap map = EncodableMap::fromEntries({{std::int32_t{1}, true}, {"x", 0}, {std::int64_t{1}, false}});
    ASSERT_EQ(map.size(), 2u);
    EXPECT_EQ(*map.begin(), (EncodableMap::Entry{std::int32_t{1}, false}));
    ASSERT_NE(map.find(EncodableValue(std::int64_t{1})), nullptr);
    EXPECT_EQ(*map.find(EncodableValue(std::int64_t{1})), EncodableValue(false));

    EncodableMap set{{std::int64_t{-4}, "wide"}};
    set.set(std::int32_t{-4}, "narrow");
    ASSERT_EQ(set.size(), 1u);
    EXPECT_EQ(*set.begin(), (EncodableMap::Entry{std::int64_t{-4}, "narrow"}));
}

TEST(EncodableMap, KeysThatDifferOnlyInWidthDeepInsideAreOneKey) {
    const EncodableValue narrowList(EncodableList{"a", std::int32_t{2}});
    const EncodableValue wideList(EncodableList{"a", std::int64_t{2}});
    const EncodableValue narrowMap(EncodableMap{{std::int32_t{3}, EncodableList{std::int32_t{4}}}});
    const EncodableValue wideMap(EncodableMap{{std::int64_t{3}, EncodableList{std::int64_t{4}}}});
    const EncodableMap map = EncodableMap::fromEntries({{narrowList, 1}, {narrowMap, 2}, {wideList, 3}, {wideMap, 4}});
    ASSERT_EQ(map.size(), 2u);
    EXPECT_EQ(*map.find(wideList), EncodableValue(3));
    EXPECT_EQ(*map.find(wideMap), EncodableValue(4));
}

TEST(EncodableMap, TypedListsOfEitherWidthStayDifferentKeys) {
    const EncodableMap map{{std::vector<std::int32_t>{1}, 1}, {std::vector<std::int64_t>{1}, 2}};
    EXPECT_EQ(map.size(), 2u);
}

TEST(EncodableValue, KeysOrderIntegersOfBothWidthsByNumber) {
    EXPECT_EQ(compareKeys(std::int32_t{5}, std::int64_t{5}), std::strong_ordering::equal);
    EXPECT_EQ(compareKeys(std::int64_t{-1}, std::int32_t{0}), std::strong_ordering::less);
    EXPECT_EQ(compareKeys(std::int32_t{9}, std::int64_t{1}), std::strong_ordering::greater);
    EXPECT_EQ(compareKeys(std::int32_t{std::numeric_limits<std::int32_t>::max()}, std::int64_t{1} << 31), std::strong_ordering::less);
    EXPECT_EQ(compareKeys(std::int64_t{std::numeric_limits<std::int64_t>::min()}, std::int32_t{std::numeric_limits<std::int32_t>::min()}),
              std::strong_ordering::less);
    // Apart from width, keys order as values do: integers after booleans, before doubles.
    EXPECT_EQ(compareKeys(true, std::int64_t{-7}), std::strong_ordering::less);
    EXPECT_EQ(compareKeys(std::int64_t{7}, 0.5), std::strong_ordering::less);
    EXPECT_EQ(compareKeys(std::int64_t{7}, EncodableValue(7.0)), std::strong_ordering::less);
    EXPECT_EQ(compareKeys("a", "b"), std::strong_ordering::less);
}

TEST(EncodableMap, MapsWithTheSameEntriesInAnotherOrderAreEqual) {
    const EncodableMap a{{"a", 1}, {"b", 2}};
    const EncodableMap b{{"b", 2}, {"a", 1}};
    EXPECT_EQ(a, b);
    EXPECT_NE(a, (EncodableMap{{"a", 1}, {"b", 3}}));
    EXPECT_NE(a, (EncodableMap{{"a", 1}}));
}

TEST(EncodableValue, KindNamesAreTheTypedJsonNames) {
    EXPECT_EQ(kindName(EncodableValue::Kind::float64), "double");
    EXPECT_EQ(kindName(EncodableValue::Kind::uint8List), "uint8list");
    EXPECT_EQ(kindName(EncodableValue::Kind::boolean), "bool");
}

}  // namespace
