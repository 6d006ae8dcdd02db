#include "bridge/BridgeMessenger.hpp"

#include <gtest/gtest.h>

#include "bridge/BridgeEmbedding.hpp"
#include "bridge/tests/EngineEnd.hpp"
#include "engine/MethodChannel.hpp"
#include "engine/StandardMethodCodec.hpp"

namespace vornix::bridge {
namespace {

using testing::EngineEnd;

TEST(BridgeMessengerTest, AChannelCallFromTheHostReachesTheEngineAsAMessageFrame) {
    EngineBridge bridge;
    EngineEnd engine;
    bridge.connect(engine.writer());
    BridgeMessenger messenger(bridge);
    engine::MethodChannel channel("com.vornix.os/custom_url_scheme", messenger);
    channel.invokeMethod("hello");
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_EQ(engine.frames[0].kind, FrameKind::message);
    EXPECT_EQ(engine.frames[0].channel, "com.vornix.os/custom_url_scheme");
    const auto call = engine::StandardMethodCodec::decodeMethodCall(engine.frames[0].payload);
    EXPECT_EQ(call.method, "hello");
}

TEST(BridgeMessengerTest, TheHandlersAnswerGoesBackAsTheReplyToTheEnginesMessage) {
    EngineBridge bridge;
    EngineEnd engine;
    bridge.connect(engine.writer());
    BridgeMessenger messenger(bridge);
    messenger.setMessageHandler("c", [](std::span<const std::uint8_t> message, engine::BinaryMessenger::BinaryReply reply) {
        reply(message);
    });
    bridge.receive(encodeFrame({FrameKind::message, 12, "c", {1, 2}}));
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_EQ(engine.frames[0], (Frame{FrameKind::reply, 12, "", {1, 2}}));
}

TEST(BridgeMessengerTest, AnEmptyHandlerRemovesTheChannelsHandler) {
    EngineBridge bridge;
    EngineEnd engine;
    bridge.connect(engine.writer());
    BridgeMessenger messenger(bridge);
    messenger.setMessageHandler("c", [](std::span<const std::uint8_t>, engine::BinaryMessenger::BinaryReply reply) {
        const std::uint8_t answer[] = {9};
        reply(answer);
    });
    messenger.setMessageHandler("c", {});
    bridge.receive(encodeFrame({FrameKind::message, 1, "c", {}}));
    ASSERT_EQ(engine.frames.size(), 1u);
    EXPECT_TRUE(engine.frames[0].payload.empty());
}

TEST(BridgeEmbeddingTest, EveryPluginKeyGetsARegistrarOnTheOneMessenger) {
    EngineBridge bridge;
    BridgeEmbedding embedding(bridge);
    auto controller = embedding.makeViewController();
    engine::FlutterViewController& registry = *controller;
    engine::PluginRegistrar* first = registry.registrarForPlugin("BitsdojoWindowPlugin");
    engine::PluginRegistrar* second = registry.registrarForPlugin("UIInteractions");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(&first->messenger(), &second->messenger());
    EXPECT_EQ(registry.registrarForPlugin("BitsdojoWindowPlugin"), first);
}

TEST(BridgeEmbeddingTest, EveryViewControllerSpeaksOverTheOneBridge) {
    EngineBridge bridge;
    EngineEnd engine;
    bridge.connect(engine.writer());
    BridgeEmbedding embedding(bridge);
    auto first = embedding.makeViewController();
    auto second = embedding.makeViewController();
    const std::uint8_t message[] = {1};
    first->registrarForPlugin("a")->messenger().send("c", message);
    second->registrarForPlugin("b")->messenger().send("c", message);
    EXPECT_EQ(engine.frames.size(), 2u);
}

}  // namespace
}  // namespace vornix::bridge
