#include "bridge/Frame.hpp"

#include <gtest/gtest.h>

#include "bridge/FrameError.hpp"

namespace vornix::bridge {
namespace {

TEST(FrameTest, AMessageIsLengthKindIdChannelLengthChannelPayloadAllLittleEndian) {
    const Bytes bytes = encodeFrame({FrameKind::message, 0x01020304, "ab", {0xAA, 0xBB, 0xCC}});
    const Bytes expected{
        12, 0, 0, 0,         // length: 7-byte header + 2 + 3
        1,                   // kind: message
        0x04, 0x03, 0x02, 0x01,  // id
        2, 0,                // channel-name length
        'a', 'b',            // channel name
        0xAA, 0xBB, 0xCC,    // payload
    };
    EXPECT_EQ(bytes, expected);
}

TEST(FrameTest, AReplyHasNoChannelAndMayHaveAnEmptyPayload) {
    const Bytes bytes = encodeFrame({FrameKind::reply, 7, "", {}});
    EXPECT_EQ(bytes, (Bytes{7, 0, 0, 0, 2, 7, 0, 0, 0, 0, 0}));
}

TEST(FrameTest, AReplyWithAChannelNameIsRefused) {
    EXPECT_THROW(encodeFrame({FrameKind::reply, 1, "com.vornix.os/ui_interactions", {}}), FrameError);
}

TEST(FrameTest, AMessageWithoutAChannelNameIsRefused) {
    EXPECT_THROW(encodeFrame({FrameKind::message, 1, "", {1}}), FrameError);
}

TEST(FrameTest, AChannelNameLongerThanTwoBytesCanCountIsRefused) {
    EXPECT_THROW(encodeFrame({FrameKind::message, 1, std::string(65536, 'c'), {}}), FrameError);
}

TEST(FrameTest, APayloadPastTheFrameLimitIsRefused) {
    EXPECT_THROW(encodeFrame({FrameKind::message, 1, "c", Bytes(maxFrameLength, 0)}), FrameError);
}

}  // namespace
}  // namespace vornix::bridge
