#include "engine/MethodChannel.hpp"

#include <gtest/gtest.h>

#include <optional>

#include "engine/StandardMethodCodec.hpp"
#include "engine/doubles/InMemoryMessenger.hpp"
#include "engine/tests/Hex.hpp"

namespace {

using namespace vornix::engine;
using vornix::engine::doubles::InMemoryMessenger;
using vornix::engine::testing::hex;

TEST(MethodChannel, InvokeMethodSendsTheEncodedCallOnTheChannelsName) {
    InMemoryMessenger messenger;
    const MethodChannel channel("com.example/test", messenger);
    channel.invokeMethod("hello");
    ASSERT_EQ(messenger.sent().size(), 1u);
    EXPECT_EQ(messenger.sent()[0].channel, "com.example/test");
    EXPECT_EQ(messenger.sent()[0].bytes, hex("07 05 68656c6c6f 00"));
}

TEST(MethodChannel, InvokeMethodCarriesItsArguments) {
    InMemoryMessenger messenger;
    MethodChannel("c", messenger).invokeMethod("urlParams", EncodableMap{{"user", "U"}});
    EXPECT_EQ(messenger.sentCalls("c"), (std::vector<MethodCall>{{"urlParams", EncodableMap{{"user", "U"}}}}));
}

TEST(MethodChannel, TheHandlerGetsTheDecodedCallAndItsAnswerGoesBack) {
    InMemoryMessenger messenger;
    const MethodChannel channel("c", messenger);
    std::optional<MethodCall> received;
    channel.setMethodCallHandler([&](const MethodCall& call, MethodResult result) {
        received = call;
        result.success("done");
    });
    const auto reply = messenger.deliverCall("c", {"open", EncodableMap{{"scheme", "x"}}});
    ASSERT_TRUE(received.has_value());
    EXPECT_EQ(*received, (MethodCall{"open", EncodableMap{{"scheme", "x"}}}));
    EXPECT_EQ(reply, MethodEnvelope(MethodSuccess{"done"}));
}

TEST(MethodChannel, AHandlerMayKeepTheResultAndAnswerLater) {
    InMemoryMessenger messenger;
    const MethodChannel channel("c", messenger);
    std::optional<MethodResult> pending;
    channel.setMethodCallHandler([&](const MethodCall&, MethodResult result) { pending.emplace(std::move(result)); });
    EXPECT_EQ(messenger.deliverCall("c", {"later", EncodableValue()}), std::nullopt);
    pending->success(1);
    ASSERT_EQ(messenger.replies().size(), 1u);
    EXPECT_EQ(messenger.replies()[0].bytes, hex("00 03 01000000"));
}

TEST(MethodChannel, AnEmptyHandlerRemovesTheHandler) {
    InMemoryMessenger messenger;
    const MethodChannel channel("c", messenger);
    channel.setMethodCallHandler([](const MethodCall&, MethodResult result) { result.success(); });
    EXPECT_TRUE(messenger.hasHandler("c"));
    channel.setMethodCallHandler(nullptr);
    EXPECT_FALSE(messenger.hasHandler("c"));
    EXPECT_EQ(messenger.deliverCall("c", {"x", EncodableValue()}), MethodEnvelope(MethodNotImplemented{}));
}

TEST(MethodChannel, CopiesNameTheSameLink) {
    InMemoryMessenger messenger;
    const MethodChannel channel("c", messenger);
    const MethodChannel copy = channel;
    copy.invokeMethod("a");
    EXPECT_EQ(copy.name(), "c");
    EXPECT_EQ(&copy.messenger(), &messenger);
    EXPECT_EQ(messenger.sentCalls("c").size(), 1u);
}

TEST(MethodChannelDeathTest, AMalformedCallFromTheEngineStopsTheProcess) {
    InMemoryMessenger messenger;
    const MethodChannel channel("com.example/test", messenger);
    channel.setMethodCallHandler([](const MethodCall&, MethodResult result) { result.success(); });
    EXPECT_DEATH(messenger.deliver("com.example/test", hex("03 01000000 00")),
                 "Fatal error: malformed method call on channel \"com.example/test\": .*must be a string");
}

}  // namespace
