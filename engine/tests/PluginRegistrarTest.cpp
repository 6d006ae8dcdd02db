#include "engine/PluginRegistrar.hpp"
#include "engine/PluginRegistry.hpp"

#include <gtest/gtest.h>

#include "engine/doubles/InMemoryRegistry.hpp"

namespace {

using namespace vornix::engine;
using vornix::engine::doubles::InMemoryMessenger;
using vornix::engine::doubles::InMemoryRegistrar;
using vornix::engine::doubles::InMemoryRegistry;

// A plug-in as the host's plug-ins are written: it builds its channel in registerWith and
// answers "ping" with "pong".
class PingPlugin : public Plugin {
public:
    static void registerWith(PluginRegistrar* registrar) {
        if (auto channel = methodChannelOn(registrar, "test/ping")) {
            registrar->addMethodCallDelegate(std::make_shared<PingPlugin>(), *channel);
        }
    }
    void handle(const MethodCall& call, MethodResult result) override {
        if (call.method == "ping") {
            result.success("pong");
        } else {
            result.notImplemented();
        }
    }
};
static_assert(PluginClass<PingPlugin>);

class NotAPluginClass : public Plugin {
public:
    void handle(const MethodCall&, MethodResult) override {}
};
static_assert(!PluginClass<NotAPluginClass>);

TEST(PluginRegistrar, TheDelegateAnswersCallsOnItsChannel) {
    InMemoryMessenger messenger;
    InMemoryRegistrar registrar(messenger);
    PingPlugin::registerWith(&registrar);
    EXPECT_EQ(messenger.deliverCall("test/ping", {"ping", EncodableValue()}), MethodEnvelope(MethodSuccess{"pong"}));
    EXPECT_EQ(messenger.deliverCall("test/ping", {"other", EncodableValue()}), MethodEnvelope(MethodNotImplemented{}));
}

TEST(PluginRegistrar, TheChannelsHandlerKeepsTheDelegateAlive) {
    InMemoryMessenger messenger;
    InMemoryRegistrar registrar(messenger);
    auto plugin = std::make_shared<PingPlugin>();
    const std::weak_ptr<PingPlugin> watch = plugin;
    const MethodChannel channel("test/ping", messenger);
    registrar.addMethodCallDelegate(std::move(plugin), channel);
    EXPECT_FALSE(watch.expired());
    channel.setMethodCallHandler(nullptr);
    EXPECT_TRUE(watch.expired());
}

TEST(PluginRegistrar, NoRegistrarGivesNoChannel) {
    EXPECT_FALSE(methodChannelOn(nullptr, "test/ping").has_value());
}

TEST(PluginRegistrar, AChannelOnARegistrarUsesItsMessenger) {
    InMemoryMessenger messenger;
    InMemoryRegistrar registrar(messenger);
    const auto channel = methodChannelOn(&registrar, "test/ping");
    ASSERT_TRUE(channel.has_value());
    EXPECT_EQ(channel->name(), "test/ping");
    EXPECT_EQ(&channel->messenger(), &messenger);
}

TEST(InMemoryRegistry, RecordsTheKeysAskedForInOrderAndSharesOneMessenger) {
    InMemoryRegistry registry;
    PluginRegistrar* first = registry.registrarForPlugin("First");
    PluginRegistrar* second = registry.registrarForPlugin("Second");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(registry.registrarForPlugin("First"), first);
    EXPECT_EQ(&first->messenger(), &registry.messenger());
    EXPECT_EQ(&second->messenger(), &registry.messenger());
    EXPECT_EQ(registry.requestedKeys(), (std::vector<std::string>{"First", "Second", "First"}));
}

TEST(InMemoryRegistry, AWithheldKeyGivesNoRegistrar) {
    InMemoryRegistry registry;
    registry.withhold("Missing");
    EXPECT_EQ(registry.registrarForPlugin("Missing"), nullptr);
    EXPECT_EQ(registry.requestedKeys(), std::vector<std::string>{"Missing"});
}

}  // namespace
