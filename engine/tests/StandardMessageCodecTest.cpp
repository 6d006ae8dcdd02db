#include "engine/StandardMessageCodec.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "engine/tests/Hex.hpp"

namespace {

using namespace vornix::engine;
using vornix::engine::testing::hex;
using vornix::engine::testing::zeros;
using vornix::engine::testing::operator+;

// Encodes to exactly `bytes`, and `bytes` decode back to the same value.
void expectWire(const EncodableValue& value, const Bytes& bytes) {
    EXPECT_EQ(StandardMessageCodec::encodeMessage(value), bytes);
    EXPECT_EQ(StandardMessageCodec::decodeMessage(bytes), value);
}

TEST(StandardMessageCodec, NullAndBooleansAreOneTypeByte) {
    expectWire(EncodableValue(), hex("00"));
    expectWire(true, hex("01"));
    expectWire(false, hex("02"));
}

TEST(StandardMessageCodec, Int32IsLittleEndianAfterItsTypeByte) {
    expectWire(5, hex("03 05000000"));
    expectWire(-1, hex("03 ffffffff"));
    expectWire(std::numeric_limits<std::int32_t>::min(), hex("03 00000080"));
    expectWire(std::numeric_limits<std::int32_t>::max(), hex("03 ffffff7f"));
}

TEST(StandardMessageCodec, Int64BeyondInt32IsSentAsInt64) {
    expectWire(std::int64_t{0x80000000}, hex("04 0000008000000000"));
    expectWire(std::int64_t{-0x80000001LL}, hex("04 ffffff7fffffffff"));
    expectWire(std::numeric_limits<std::int64_t>::min(), hex("04 0000000000000080"));
    expectWire(std::numeric_limits<std::int64_t>::max(), hex("04 ffffffffffffff7f"));
}

TEST(StandardMessageCodec, Int64ThatFitsIsSentAsInt32) {
    EXPECT_EQ(StandardMessageCodec::encodeMessage(std::int64_t{5}), hex("03 05000000"));
    EXPECT_EQ(StandardMessageCodec::encodeMessage(std::int64_t{std::numeric_limits<std::int32_t>::min()}), hex("03 00000080"));
    EXPECT_EQ(StandardMessageCodec::encodeMessage(std::int64_t{std::numeric_limits<std::int32_t>::max()}), hex("03 ffffff7f"));
}

TEST(StandardMessageCodec, AnInt64ThatFitsInInt32StillDecodesAsInt64) {
    EXPECT_EQ(StandardMessageCodec::decodeMessage(hex("04 0500000000000000")), EncodableValue(std::int64_t{5}));
}

TEST(StandardMessageCodec, Float64IsPaddedToAMultipleOfEight) {
    expectWire(0.5, hex("06 00000000000000 000000000000e03f"));
    expectWire(-2.0, hex("06 00000000000000 00000000000000c0"));
}

TEST(StandardMessageCodec, StringsAreUtf8WithTheirByteCount) {
    expectWire("", hex("07 00"));
    expectWire("hello", hex("07 05 68656c6c6f"));
    expectWire("\xc3\xa9", hex("07 02 c3a9"));
}

TEST(StandardMessageCodec, Uint8ListsAreNeverPadded) {
    expectWire(std::vector<std::uint8_t>{}, hex("08 00"));
    expectWire(std::vector<std::uint8_t>{1, 2, 255}, hex("08 03 0102ff"));
}

TEST(StandardMessageCodec, Int32ListsArePaddedToFour) {
    expectWire(std::vector<std::int32_t>{1, -1}, hex("09 02 0000 01000000 ffffffff"));
}

TEST(StandardMessageCodec, Int64ListsArePaddedToEight) {
    expectWire(std::vector<std::int64_t>{1, std::numeric_limits<std::int64_t>::min()},
               hex("0a 02 000000000000 0100000000000000 0000000000000080"));
}

TEST(StandardMessageCodec, Float32ListsArePaddedToFour) {
    expectWire(std::vector<float>{1.0f, -0.5f}, hex("0e 02 0000 0000803f 000000bf"));
}

TEST(StandardMessageCodec, Float64ListsArePaddedToEight) {
    expectWire(std::vector<double>{1.0}, hex("0b 01 000000000000 000000000000f03f"));
}

TEST(StandardMessageCodec, EmptyTypedListsAreStillPadded) {
    expectWire(std::vector<std::int32_t>{}, hex("09 00 0000"));
    expectWire(std::vector<float>{}, hex("0e 00 0000"));
    expectWire(std::vector<std::int64_t>{}, hex("0a 00 000000000000"));
    expectWire(std::vector<double>{}, hex("0b 00 000000000000"));
}

TEST(StandardMessageCodec, ListsHoldTheirItemsInOrder) {
    expectWire(EncodableList{}, hex("0c 00"));
    expectWire(EncodableList{1, "a", EncodableValue()}, hex("0c 03 03 01000000 07 01 61 00"));
}

TEST(StandardMessageCodec, MapsHoldKeyThenValueInInsertionOrder) {
    expectWire(EncodableMap{}, hex("0d 00"));
    expectWire(EncodableMap{{"b", 1}, {"a", true}}, hex("0d 02 07 01 62 03 01000000 07 01 61 01"));
    expectWire(EncodableMap{{1, EncodableList{}}, {EncodableValue(), "x"}}, hex("0d 02 03 01000000 0c 00 00 07 01 78"));
}

TEST(StandardMessageCodec, AlignmentInsideAListCountsFromTheMessageStart) {
    // type, count, true, then a double's type byte at offset 3: four bytes of padding reach offset 8.
    expectWire(EncodableList{true, 0.5}, hex("0c 02 01 06 00000000 000000000000e03f"));
    // The double's type byte at offset 7 already leaves the data aligned at 8: no padding.
    expectWire(EncodableList{"abc", 1.0}, hex("0c 02 07 03 616263 06 000000000000f03f"));
    // An int32 list whose count ends at offset 5: three bytes of padding.
    expectWire(EncodableList{true, std::vector<std::int32_t>{7}}, hex("0c 02 01 09 01 000000 07000000"));
    // A float32 list whose count ends at offset 8: no padding.
    expectWire(EncodableList{"ab", std::vector<float>{1.0f}}, hex("0c 02 07 02 6162 0e 01 0000803f"));
    // An int64 list whose count ends at offset 10: six bytes of padding.
    expectWire(EncodableList{"abcd", std::vector<std::int64_t>{2}}, hex("0c 02 07 04 61626364 0a 01 000000000000 0200000000000000"));
}

TEST(StandardMessageCodec, AlignmentInsideAMapCountsFromTheMessageStart) {
    expectWire(EncodableMap{{"k", std::vector<double>{2.0}}}, hex("0d 01 07 01 6b 0b 01 00 0000000000000040"));
    expectWire(EncodableMap{{1.0, 2.0}}, hex("0d 01 06 0000000000 000000000000f03f 06 00000000000000 0000000000000040"));
}

std::string text(std::size_t size) { return std::string(size, 'x'); }

TEST(StandardMessageCodec, SizesBelow254TakeOneByte) {
    expectWire(text(253), hex("07 fd") + Bytes(253, 'x'));
    expectWire(std::vector<std::uint8_t>(253, 1), hex("08 fd") + Bytes(253, 1));
}

TEST(StandardMessageCodec, SizesFrom254To65535TakeAMarkerAndSixteenBits) {
    expectWire(text(254), hex("07 fe fe00") + Bytes(254, 'x'));
    expectWire(text(0xffff), hex("07 fe ffff") + Bytes(0xffff, 'x'));
    expectWire(EncodableList(254), hex("0c fe fe00") + zeros(254));
}

TEST(StandardMessageCodec, SizesFrom65536TakeAMarkerAndThirtyTwoBits) {
    expectWire(text(0x10000), hex("07 ff 00000100") + Bytes(0x10000, 'x'));
    expectWire(std::vector<std::uint8_t>(0x10000, 2), hex("08 ff 00000100") + Bytes(0x10000, 2));
    expectWire(EncodableList(0x10000), hex("0c ff 00000100") + zeros(0x10000));
}

TEST(StandardMessageCodec, PaddingFollowsEachSizeEscape) {
    // After a three-byte size the data starts at offset 4: aligned for int32, four short for int64.
    expectWire(std::vector<std::int32_t>(254, 0), hex("09 fe fe00") + zeros(254 * 4));
    expectWire(std::vector<std::int64_t>(0xffff, 0), hex("0a fe ffff 00000000") + zeros(0xffff * 8));
    // After a five-byte size the data would start at offset 6: two bytes to four, two to eight.
    expectWire(std::vector<float>(0x10000, 0.0f), hex("0e ff 00000100 0000") + zeros(0x10000 * 4));
    expectWire(std::vector<double>(0x10000, 0.0), hex("0b ff 00000100 0000") + zeros(0x10000 * 8));
    expectWire(std::vector<std::int32_t>(253, 0), hex("09 fd 0000") + zeros(253 * 4));
}

TEST(StandardMessageCodec, ZeroBytesAreNoMessageAndDecodeAsNull) {
    EXPECT_TRUE(StandardMessageCodec::decodeMessage({}).isNull());
}

TEST(StandardMessageCodec, NonMinimalSizesAreReadAsTheEngineReadsThem) {
    EXPECT_EQ(StandardMessageCodec::decodeMessage(hex("07 fe 0100 61")), EncodableValue("a"));
    EXPECT_EQ(StandardMessageCodec::decodeMessage(hex("07 ff 01000000 61")), EncodableValue("a"));
}

TEST(StandardMessageCodec, PaddingBytesAreSkippedWhateverTheyHold) {
    EXPECT_EQ(StandardMessageCodec::decodeMessage(hex("06 01020304050607 000000000000e03f")), EncodableValue(0.5));
}

}  // namespace
