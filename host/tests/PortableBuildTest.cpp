#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"
#include "engine/MethodEnvelope.hpp"
#include "engine/doubles/InMemoryRegistry.hpp"
#include "host/GeneratedPluginRegistrant.hpp"
#include "host/tests/MainWindowFixture.hpp"

// These tests run in the portable build, which links only the window library's plug-in
// (host/PortableLinkedPlugins.cpp).
namespace vornix::host::testing {
namespace {

using Entries = std::vector<std::string>;

const std::string windowChannel(bitsdojo_window::BitsdojoWindowPlugin::channelName);

TEST(PortableBuild, OnlyTheWindowLibrarysPluginRegisters) {
    engine::doubles::InMemoryRegistry registry;
    RegisterGeneratedPlugins(registry);
    EXPECT_EQ(registry.requestedKeys(), (Entries{"BitsdojoWindowPlugin"}));
    EXPECT_EQ(registry.messenger().deliverCall(windowChannel, {"anything", engine::EncodableValue()}),
              engine::MethodEnvelope(engine::MethodNotImplemented{}));
}

using PortableMainWindowTest = MainWindowTest;

TEST_F(PortableMainWindowTest, TheMainWindowRegistersTheWindowPluginThenTheHostChannels) {
    load();
    EXPECT_EQ(log.entries(), (Entries{
                                 "embedding.makeViewController",
                                 "window.frame",
                                 "window.setContentViewController",
                                 "window.setFrame 335 390 800x600 display",
                                 "viewController.registrarForPlugin BitsdojoWindowPlugin",
                                 "viewController.registrarForPlugin CustomURLSchemeHandler",
                                 "stdout: PLUGIN REGISTERED",
                                 "viewController.registrarForPlugin UIInteractions",
                                 "window.awakeFromNib",
                             }));
    EXPECT_TRUE(controller().messenger().hasHandler(windowChannel));
}

}  // namespace
}  // namespace vornix::host::testing
