#include "bridge/EngineBridge.hpp"

#include <optional>

#include <gtest/gtest.h>

#include "bridge/FrameError.hpp"
#include "bridge/tests/EngineEnd.hpp"

namespace vornix::bridge {
namespace {

using testing::EngineEnd;

// A bridge with an engine connected from the start.
class ConnectedBridgeTest : public ::testing::Test {
protected:
    ConnectedBridgeTest() { bridge.connect(engine.writer()); }

    EngineBridge bridge;
    EngineEnd engine;
};

TEST(EngineBridgeTest, WithoutAnEngineNothingIsWrittenAnywhere) {
    EngineBridge bridge;
    bridge.send("com.vornix.os/custom_url_scheme", {1});
    EXPECT_FALSE(bridge.connected());
}

TEST(EngineBridgeTest, MessagesSentBeforeTheEngineConnectsAreDeliveredInOrderWhenItDoes) {
    EngineBridge bridge;
    bridge.send("com.vornix.os/custom_url_scheme", {1});
    bridge.send("com.vornix.os/ui_interactions", {2});
    EngineEnd engine;
    bridge.connect(engine.writer());
    ASSERT_EQ(engine.frames.size(), 2u);
    EXPECT_EQ(engine.frames[0].channel, "com.vornix.os/custom_url_scheme");
    EXPECT_EQ(engine.frames[0].payload, Bytes{1});
    EXPECT_EQ(engine.frames[1].channel, "com.vornix.os/ui_interactions");
    EXPECT_EQ(engine.frames[0].kind, FrameKind::message);
    EXPECT_NE(engine.frames[0].id, engine.frames[1].id);
}

TEST(EngineBridgeTest, AChannelKeepsOnlyABoundedNumberOfMessagesForALateEngine) {
    EngineBridge bridge(1);
    std::optional<Bytes> firstAnswer;
    bridge.send("c", {1}, [&](const Bytes& reply) { firstAnswer = reply; });
    bridge.send("c", {2});
    ASSERT_TRUE(firstAnswer);
    EXPECT_TRUE(firstAnswer->empty());
    EngineEnd engine;
    bridge.connect(engine.writer());
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_EQ(engine.frames[0].payload, Bytes{2});
}

TEST_F(ConnectedBridgeTest, TheEnginesReplyReachesTheSendersHandler) {
    std::optional<Bytes> answer;
    bridge.send("c", {1}, [&](const Bytes& reply) { answer = reply; });
    ASSERT_EQ(engine.frames.size(), 1u);
    bridge.receive(encodeFrame({FrameKind::reply, engine.frames[0].id, "", {0x01}}));
    EXPECT_EQ(answer, Bytes{0x01});
}

TEST_F(ConnectedBridgeTest, RepliesToMessagesSentWithoutAHandlerAreAccepted) {
    bridge.send("c", {1});
    EXPECT_NO_THROW(bridge.receive(encodeFrame({FrameKind::reply, engine.frames[0].id, "", {}})));
}

TEST_F(ConnectedBridgeTest, AReplyToNoMessageBreaksTheProtocol) {
    EXPECT_THROW(bridge.receive(encodeFrame({FrameKind::reply, 99, "", {}})), FrameError);
}

TEST_F(ConnectedBridgeTest, ASecondReplyToTheSameMessageBreaksTheProtocol) {
    bridge.send("c", {1});
    const Bytes reply = encodeFrame({FrameKind::reply, engine.frames[0].id, "", {}});
    bridge.receive(reply);
    EXPECT_THROW(bridge.receive(reply), FrameError);
}

TEST_F(ConnectedBridgeTest, AnEngineMessageReachesTheChannelsHandlerAndItsAnswerGoesBackWithTheSameId) {
    Bytes seen;
    bridge.setMessageHandler("com.vornix.os/ui_interactions", [&](const Bytes& message, EngineBridge::Reply reply) {
        seen = message;
        reply({0x01});
    });
    bridge.receive(encodeFrame({FrameKind::message, 31, "com.vornix.os/ui_interactions", {7, 7}}));
    EXPECT_EQ(seen, (Bytes{7, 7}));
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_EQ(engine.frames[0], (Frame{FrameKind::reply, 31, "", {0x01}}));
}

TEST_F(ConnectedBridgeTest, AMessageOnAChannelWithoutAHandlerGetsAnEmptyReply) {
    bridge.receive(encodeFrame({FrameKind::message, 4, "nobody/listens", {1}}));
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_EQ(engine.frames[0], (Frame{FrameKind::reply, 4, "", {}}));
}

TEST_F(ConnectedBridgeTest, AHandlerAnswersOnlyOnce) {
    bridge.setMessageHandler("c", [](const Bytes&, EngineBridge::Reply reply) {
        reply({1});
        reply({2});
    });
    bridge.receive(encodeFrame({FrameKind::message, 1, "c", {}}));
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_EQ(engine.frames[0].payload, Bytes{1});
}

TEST(EngineBridgeTest, AnAnswerGivenAfterItsEngineLeftIsNotWrittenToTheNextEngine) {
    EngineBridge bridge;
    EngineEnd first;
    bridge.connect(first.writer());
    EngineBridge::Reply later;
    bridge.setMessageHandler("c", [&](const Bytes&, EngineBridge::Reply reply) { later = std::move(reply); });
    bridge.receive(encodeFrame({FrameKind::message, 1, "c", {}}));
    bridge.disconnect();
    EngineEnd second;
    bridge.connect(second.writer());
    later({1});
    EXPECT_TRUE(first.frames.empty());
    EXPECT_TRUE(second.frames.empty());
}

TEST_F(ConnectedBridgeTest, WhenTheEngineLeavesItsUnansweredMessagesGetEmptyReplies) {
    std::optional<Bytes> answer;
    bridge.send("c", {1}, [&](const Bytes& reply) { answer = reply; });
    bridge.disconnect();
    ASSERT_TRUE(answer);
    EXPECT_TRUE(answer->empty());
    EXPECT_FALSE(bridge.connected());
}

TEST(EngineBridgeTest, AfterTheEngineLeftMessagesAreKeptForTheNextOne) {
    EngineBridge bridge;
    EngineEnd first;
    bridge.connect(first.writer());
    bridge.disconnect();
    bridge.send("c", {5});
    EngineEnd second;
    bridge.connect(second.writer());
    EXPECT_TRUE(first.frames.empty());
    ASSERT_EQ(second.frames.size(), 1u);
    EXPECT_EQ(second.frames[0].payload, Bytes{5});
}

TEST_F(ConnectedBridgeTest, FramesSplitAcrossReadsAreHandledWhenComplete) {
    int calls = 0;
    bridge.setMessageHandler("c", [&](const Bytes&, EngineBridge::Reply) { ++calls; });
    const Bytes bytes = encodeFrame({FrameKind::message, 1, "c", {1, 2, 3, 4}});
    bridge.receive(std::span(bytes).first(5));
    EXPECT_EQ(calls, 0);
    bridge.receive(std::span(bytes).subspan(5));
    EXPECT_EQ(calls, 1);
}

TEST_F(ConnectedBridgeTest, RemovingAHandlerMakesItsChannelAnswerEmpty) {
    bridge.setMessageHandler("c", [](const Bytes&, EngineBridge::Reply reply) { reply({1}); });
    bridge.setMessageHandler("c", {});
    bridge.receive(encodeFrame({FrameKind::message, 1, "c", {}}));
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_TRUE(engine.frames[0].payload.empty());
}

}  // namespace
}  // namespace vornix::bridge
