#include "engine/CodecError.hpp"
#include "engine/StandardMessageCodec.hpp"
#include "engine/StandardMethodCodec.hpp"
#include "engine/ValueReader.hpp"

#include <gtest/gtest.h>

#include "engine/tests/Hex.hpp"

namespace {

using namespace vornix::engine;
using vornix::engine::testing::hex;

// `decode` throws CodecError for `bytes`, and its text names `because`.
template <class Decode>
void expectRefused(Decode decode, const Bytes& bytes, const std::string& because) {
    try {
        decode(bytes);
        ADD_FAILURE() << "decoded, but should be refused because of " << because;
    } catch (const CodecError& error) {
        EXPECT_NE(std::string(error.what()).find(because), std::string::npos) << error.what();
    }
}

void expectMessageRefused(const Bytes& bytes, const std::string& because) {
    expectRefused(StandardMessageCodec::decodeMessage, bytes, because);
}

void expectCallRefused(const Bytes& bytes, const std::string& because) {
    expectRefused(StandardMethodCodec::decodeMethodCall, bytes, because);
}

void expectEnvelopeRefused(const Bytes& bytes, const std::string& because) {
    expectRefused(StandardMethodCodec::decodeEnvelope, bytes, because);
}

TEST(MalformedInput, TruncatedValuesAreRefused) {
    expectMessageRefused(hex("03 050000"), "truncated");
    expectMessageRefused(hex("04 05000000"), "truncated");
    expectMessageRefused(hex("06 00000000000000 0000"), "truncated");
    expectMessageRefused(hex("0c 02 00"), "past the end");
    expectMessageRefused(hex("0d 01 00"), "past the end");
    expectMessageRefused(hex("07 fe 01"), "truncated");
    expectMessageRefused(hex("07 ff 010000"), "truncated");
}

TEST(MalformedInput, PaddingPastTheEndIsRefused) {
    expectMessageRefused(hex("06 0000"), "truncated");
    expectMessageRefused(hex("0a 00 0000"), "truncated");
}

TEST(MalformedInput, UnknownTypeBytesAreRefused) {
    expectMessageRefused(hex("05 00"), "unknown type byte 5");
    expectMessageRefused(hex("0f"), "unknown type byte 15");
    expectMessageRefused(hex("ff"), "unknown type byte 255");
    expectMessageRefused(hex("0c 01 80"), "unknown type byte 128");
}

TEST(MalformedInput, SizesPastTheEndAreRefusedBeforeAnythingIsAllocated) {
    expectMessageRefused(hex("07 05 6162"), "truncated");
    expectMessageRefused(hex("08 ff ffffffff 00"), "truncated");
    expectMessageRefused(hex("0b ff ffffffff 00 00"), "truncated");
    expectMessageRefused(hex("0c ff ffffffff 00"), "past the end");
    expectMessageRefused(hex("0d ff ffffffff 00 00"), "past the end");
}

TEST(MalformedInput, TrailingBytesAreRefused) {
    expectMessageRefused(hex("00 00"), "trailing");
    expectMessageRefused(hex("03 01000000 ff"), "trailing");
}

TEST(MalformedInput, AbsurdNestingIsRefused) {
    Bytes deep;
    for (int i = 0; i < 100000; ++i) {
        deep.push_back(0x0c);
        deep.push_back(0x01);
    }
    deep.push_back(0x00);
    expectMessageRefused(deep, "nested deeper than");
}

TEST(MalformedInput, NestingUpToTheLimitIsRead) {
    Bytes deep;
    for (int i = 0; i < ValueReader::maxNesting; ++i) {
        deep.push_back(0x0d);
        deep.push_back(0x01);
        deep.push_back(0x00);
    }
    deep.push_back(0x00);
    EXPECT_EQ(StandardMessageCodec::decodeMessage(deep).kind(), EncodableValue::Kind::map);
    deep.insert(deep.begin(), {0x0c, 0x01});
    expectMessageRefused(deep, "nested deeper than");
}

TEST(MalformedInput, TextThatIsNotUtf8IsRefused) {
    expectMessageRefused(hex("07 01 ff"), "not UTF-8");
    expectMessageRefused(hex("07 02 c0af"), "not UTF-8");      // overlong
    expectMessageRefused(hex("07 03 eda080"), "not UTF-8");    // a surrogate
    expectMessageRefused(hex("07 04 f4908080"), "not UTF-8");  // past U+10FFFF
    expectMessageRefused(hex("07 02 e282"), "not UTF-8");      // cut short
    EXPECT_EQ(StandardMessageCodec::decodeMessage(hex("07 04 f09f9880")), EncodableValue("\xf0\x9f\x98\x80"));
}

TEST(MalformedInput, MethodCallsNeedAStringNameArgumentsAndNothingMore) {
    expectCallRefused(Bytes(), "truncated");
    expectCallRefused(hex("07 04 6f70656e"), "truncated");
    expectCallRefused(hex("03 01000000 00"), "name must be a string, not int32");
    expectCallRefused(hex("07 04 6f70656e 00 00"), "trailing");
}

TEST(MalformedInput, EnvelopesAreCheckedPartByPart) {
    expectEnvelopeRefused(hex("02 00"), "must start with 0 or 1, not 2");
    expectEnvelopeRefused(hex("00"), "truncated");
    expectEnvelopeRefused(hex("00 01 01"), "trailing");
    expectEnvelopeRefused(hex("01 00 00 00"), "code must be a string, not null");
    expectEnvelopeRefused(hex("01 07 01 45 03 01000000 00"), "message must be a string, not int32");
    expectEnvelopeRefused(hex("01 07 01 45 00"), "truncated");
    expectEnvelopeRefused(hex("01 07 01 45 00 00 00"), "trailing");
}

}  // namespace
