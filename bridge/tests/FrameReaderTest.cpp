#include "bridge/FrameReader.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bridge/FrameError.hpp"

namespace vornix::bridge {
namespace {

using ::testing::HasSubstr;

std::string errorOf(const Bytes& bytes) {
    FrameReader reader;
    reader.feed(bytes);
    try {
        reader.next();
    } catch (const FrameError& error) {
        return error.what();
    }
    return "no error";
}

TEST(FrameReaderTest, ReadsBackWhatTheWriterWrote) {
    const Frame message{FrameKind::message, 42, "com.vornix.os/custom_url_scheme", {1, 2, 3}};
    const Frame reply{FrameKind::reply, 42, "", {9}};
    Bytes bytes = encodeFrame(message);
    const Bytes second = encodeFrame(reply);
    bytes.insert(bytes.end(), second.begin(), second.end());

    FrameReader reader;
    reader.feed(bytes);
    EXPECT_EQ(reader.next(), message);
    EXPECT_EQ(reader.next(), reply);
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_EQ(reader.buffered(), 0u);
}

TEST(FrameReaderTest, AFrameArrivingOneByteAtATimeComesOutWhole) {
    const Frame message{FrameKind::message, 5, "bitsdojo/window", {0xFE, 0x00, 0x01}};
    const Bytes bytes = encodeFrame(message);
    FrameReader reader;
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        reader.feed(std::span(&bytes[i], 1));
        ASSERT_EQ(reader.next(), std::nullopt) << "after byte " << i;
    }
    reader.feed(std::span(&bytes.back(), 1));
    EXPECT_EQ(reader.next(), message);
}

TEST(FrameReaderTest, AnEmptyReplyPayloadIsKeptEmpty) {
    FrameReader reader;
    reader.feed(encodeFrame({FrameKind::reply, 3, "", {}}));
    const auto frame = reader.next();
    ASSERT_TRUE(frame);
    EXPECT_TRUE(frame->payload.empty());
}

TEST(FrameReaderTest, ALengthShorterThanTheHeaderIsAClearError) {
    EXPECT_THAT(errorOf({6, 0, 0, 0, 1, 0, 0, 0, 0, 0}), HasSubstr("shorter than the 7-byte header"));
}

TEST(FrameReaderTest, AnOversizedLengthIsRefusedBeforeItsBodyArrives) {
    EXPECT_THAT(errorOf({0xFF, 0xFF, 0xFF, 0x7F}), HasSubstr("exceeds the limit"));
}

TEST(FrameReaderTest, AnUnknownKindIsAClearError) {
    EXPECT_THAT(errorOf({7, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0}), HasSubstr("frame kind 3 is neither"));
}

TEST(FrameReaderTest, AChannelNameRunningPastTheFrameIsAClearError) {
    EXPECT_THAT(errorOf({8, 0, 0, 0, 1, 0, 0, 0, 0, 2, 0, 'a'}), HasSubstr("runs past the end"));
}

TEST(FrameReaderTest, AReplyNamingAChannelIsAClearError) {
    EXPECT_THAT(errorOf({8, 0, 0, 0, 2, 0, 0, 0, 0, 1, 0, 'a'}), HasSubstr("replies name none"));
}

TEST(FrameReaderTest, AMessageWithoutAChannelIsAClearError) {
    EXPECT_THAT(errorOf({7, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}), HasSubstr("no channel name"));
}

TEST(FrameReaderTest, AfterAMalformedFrameTheReaderStaysFailed) {
    FrameReader reader;
    reader.feed({{7, 0, 0, 0, 9, 0, 0, 0, 0, 0, 0}});
    EXPECT_THROW(reader.next(), FrameError);
    reader.feed(encodeFrame({FrameKind::reply, 1, "", {}}));
    EXPECT_THROW(reader.next(), FrameError);
}

TEST(FrameReaderTest, FramesBeforeAMalformedOneAreDelivered) {
    Bytes bytes = encodeFrame({FrameKind::reply, 1, "", {}});
    const Bytes bad{7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    bytes.insert(bytes.end(), bad.begin(), bad.end());
    FrameReader reader;
    reader.feed(bytes);
    EXPECT_TRUE(reader.next());
    EXPECT_THROW(reader.next(), FrameError);
}

}  // namespace
}  // namespace vornix::bridge
