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
    EXPECT_EQ(map.find(EncodableValue(7)), nullptr);
    EXPECT_EQ(map.find("absent"), nullptr);
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
