#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"

#include <gtest/gtest.h>

#include <string>

#include "engine/doubles/InMemoryRegistry.hpp"

namespace vornix::bitsdojo_window {
namespace {

using engine::EncodableValue;
using engine::MethodEnvelope;
using engine::MethodNotImplemented;

static_assert(engine::PluginClass<BitsdojoWindowPlugin>);

TEST(BitsdojoWindowPlugin, RegistersTheChannelBitsdojoWindowOnTheRegistrarsMessenger) {
    engine::doubles::InMemoryRegistry registry;
    BitsdojoWindowPlugin::registerWith(registry.registrarForPlugin("BitsdojoWindowPlugin"));
    EXPECT_TRUE(registry.messenger().hasHandler("bitsdojo/window"));
}

TEST(BitsdojoWindowPlugin, AnyMethodIsAnsweredWithNotImplemented) {
    engine::doubles::InMemoryRegistry registry;
    BitsdojoWindowPlugin::registerWith(registry.registrarForPlugin("BitsdojoWindowPlugin"));
    for (const std::string method : {"getAppWindow", "showWindow", "", "anything else"}) {
        EXPECT_EQ(registry.messenger().deliverCall("bitsdojo/window", {method, EncodableValue()}),
                  MethodEnvelope(MethodNotImplemented{}))
            << method;
    }
    EXPECT_EQ(registry.messenger().deliverCall("bitsdojo/window", {"setSize", EncodableValue(engine::EncodableMap{})}),
              MethodEnvelope(MethodNotImplemented{}));
}

TEST(BitsdojoWindowPlugin, WithoutARegistrarNothingIsRegistered) {
    engine::doubles::InMemoryRegistry registry;
    registry.withhold("BitsdojoWindowPlugin");
    BitsdojoWindowPlugin::registerWith(registry.registrarForPlugin("BitsdojoWindowPlugin"));
    EXPECT_FALSE(registry.messenger().hasHandler("bitsdojo/window"));
}

}  // namespace
}  // namespace vornix::bitsdojo_window
