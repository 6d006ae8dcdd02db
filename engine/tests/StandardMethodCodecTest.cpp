#include "engine/StandardMethodCodec.hpp"

#include <gtest/gtest.h>

#include "engine/tests/Hex.hpp"

namespace {

using namespace vornix::engine;
using vornix::engine::testing::hex;

void expectCallWire(const MethodCall& call, const Bytes& bytes) {
    EXPECT_EQ(StandardMethodCodec::encodeMethodCall(call), bytes);
    EXPECT_EQ(StandardMethodCodec::decodeMethodCall(bytes), call);
}

void expectEnvelopeWire(const MethodEnvelope& envelope, const Bytes& bytes) {
    EXPECT_EQ(StandardMethodCodec::encodeEnvelope(envelope), bytes);
    EXPECT_EQ(StandardMethodCodec::decodeEnvelope(bytes), envelope);
}

TEST(StandardMethodCodec, ACallIsTheNameThenNullWhenThereAreNoArguments) {
    expectCallWire({"hello", EncodableValue()}, hex("07 05 68656c6c6f 00"));
}

TEST(StandardMethodCodec, ACallCarriesItsArgumentsAfterTheName) {
    expectCallWire({"open", EncodableMap{{"scheme", "x"}}}, hex("07 04 6f70656e 0d 01 07 06 736368656d65 07 01 78"));
}

TEST(StandardMethodCodec, AlignmentInACallCountsFromTheCallsFirstByte) {
    expectCallWire({"a", 0.5}, hex("07 01 61 06 00000000 000000000000e03f"));
    expectCallWire({"ab", std::vector<double>{1.0}}, hex("07 02 6162 0b 01 0000 000000000000f03f"));
    expectCallWire({"abc", std::vector<std::int32_t>{1}}, hex("07 03 616263 09 01 00 01000000"));
}

TEST(StandardMethodCodec, AnAuthStateCallEncodesAsTheEngineSendsIt) {
    const MethodCall call{"auth_state", EncodableMap{{"signedIn", true}, {"port", "8080"}}};
    expectCallWire(call, hex("07 0a 617574685f7374617465 0d 02 07 08 7369676e6564496e 01 07 04 706f7274 07 04 38303830"));
}

TEST(StandardMethodCodec, ASuccessEnvelopeIsZeroThenTheResult) {
    expectEnvelopeWire(MethodSuccess{true}, hex("00 01"));
    expectEnvelopeWire(MethodSuccess{EncodableValue()}, hex("00 00"));
    expectEnvelopeWire(MethodSuccess{"ok"}, hex("00 07 02 6f6b"));
}

TEST(StandardMethodCodec, AlignmentInAnEnvelopeCountsFromItsFirstByte) {
    expectEnvelopeWire(MethodSuccess{0.5}, hex("00 06 000000000000 000000000000e03f"));
    expectEnvelopeWire(MethodSuccess{std::vector<std::int32_t>{1}}, hex("00 09 01 00 01000000"));
    expectEnvelopeWire(MethodError{"E", std::nullopt, 1.5}, hex("01 07 01 45 00 06 0000 000000000000f83f"));
}

TEST(StandardMethodCodec, AnErrorEnvelopeIsOneThenCodeMessageAndDetails) {
    expectEnvelopeWire(MethodError{"E", "msg", EncodableValue()}, hex("01 07 01 45 07 03 6d7367 00"));
    expectEnvelopeWire(MethodError{"E", std::nullopt, EncodableValue()}, hex("01 07 01 45 00 00"));
    expectEnvelopeWire(MethodError{"bad", "why", EncodableList{1}}, hex("01 07 03 626164 07 03 776879 0c 01 03 01000000"));
}

TEST(StandardMethodCodec, NotImplementedIsAnEmptyReply) {
    expectEnvelopeWire(MethodNotImplemented{}, Bytes());
}

TEST(StandardMethodCodec, TheEnvelopeShortcutsEncodeLikeTheEnvelopes) {
    EXPECT_EQ(StandardMethodCodec::encodeSuccessEnvelope(true), hex("00 01"));
    EXPECT_EQ(StandardMethodCodec::encodeErrorEnvelope("E", "msg", EncodableValue()), hex("01 07 01 45 07 03 6d7367 00"));
}

}  // namespace
