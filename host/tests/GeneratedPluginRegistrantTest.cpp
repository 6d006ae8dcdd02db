#include "host/GeneratedPluginRegistrant.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"
#include "engine/doubles/InMemoryRegistry.hpp"
#include "host/tests/StandInPlugins.hpp"

namespace vornix::host::testing {
namespace {

using engine::doubles::InMemoryRegistry;
using Keys = std::vector<std::string>;

const Keys tenKeysInOrder{
    "BitsdojoWindowPlugin",    "DeviceInfoPlusMacosPlugin", "FlutterLocalNotificationsPlugin",
    "MenubarPlugin",           "FLTPackageInfoPlusPlugin",  "PathProviderPlugin",
    "SentryFlutterPlugin",     "SharedPreferencesPlugin",   "SystemTrayPlugin",
    "UrlLauncherPlugin",
};

std::vector<int> registeredPlugins() {
    std::vector<int> plugins;
    for (const StandInRegistration& registration : standInRegistrations()) {
        plugins.push_back(registration.plugin);
    }
    return plugins;
}

class GeneratedPluginRegistrantTest : public ::testing::Test {
protected:
    void SetUp() override { standInRegistrations().clear(); }

    InMemoryRegistry registry;
};

TEST_F(GeneratedPluginRegistrantTest, TheTenPluginsRegisterUnderTheirKeysInTheirFixedOrder) {
    registerLinkedPlugins(registry, everyPluginAsStandIn());
    EXPECT_EQ(registry.requestedKeys(), tenKeysInOrder);
    EXPECT_EQ(registeredPlugins(), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(GeneratedPluginRegistrantTest, EachPluginIsGivenTheRegistrarForItsOwnKey) {
    registerLinkedPlugins(registry, everyPluginAsStandIn());
    ASSERT_EQ(standInRegistrations().size(), tenKeysInOrder.size());
    for (std::size_t i = 0; i < tenKeysInOrder.size(); ++i) {
        EXPECT_EQ(standInRegistrations()[i].registrar, registry.registrarForPlugin(tenKeysInOrder[i])) << tenKeysInOrder[i];
    }
}

TEST_F(GeneratedPluginRegistrantTest, APluginTheBuildLacksIsLeftOutAndTheRestKeepTheirOrder) {
    LinkedPlugins plugins = everyPluginAsStandIn();
    plugins.deviceInfoPlusMacosPlugin = nullptr;
    plugins.fltPackageInfoPlusPlugin = nullptr;
    plugins.systemTrayPlugin = nullptr;
    registerLinkedPlugins(registry, plugins);
    EXPECT_EQ(registry.requestedKeys(), (Keys{"BitsdojoWindowPlugin", "FlutterLocalNotificationsPlugin", "MenubarPlugin",
                                              "PathProviderPlugin", "SentryFlutterPlugin", "SharedPreferencesPlugin",
                                              "UrlLauncherPlugin"}));
    EXPECT_EQ(registeredPlugins(), (std::vector<int>{1, 3, 4, 6, 7, 8, 10}));
}

TEST_F(GeneratedPluginRegistrantTest, ABuildWithNoPluginsAsksForNoRegistrar) {
    registerLinkedPlugins(registry, LinkedPlugins{});
    EXPECT_TRUE(registry.requestedKeys().empty());
    EXPECT_TRUE(standInRegistrations().empty());
}

TEST_F(GeneratedPluginRegistrantTest, ARegistrarTheRegistryDoesNotReturnIsPassedOnAsItIs) {
    registry.withhold("PathProviderPlugin");
    registerLinkedPlugins(registry, everyPluginAsStandIn());
    EXPECT_EQ(registry.requestedKeys(), tenKeysInOrder);
    ASSERT_EQ(standInRegistrations().size(), 10u);
    for (const StandInRegistration& registration : standInRegistrations()) {
        if (registration.plugin == 6) {
            EXPECT_EQ(registration.registrar, nullptr);
        } else {
            EXPECT_NE(registration.registrar, nullptr) << registration.plugin;
        }
    }
}

TEST_F(GeneratedPluginRegistrantTest, ThisBuildRegistersTheWindowLibrarysPluginAndItsNineStandIns) {
    RegisterGeneratedPlugins(registry);
    EXPECT_EQ(registry.requestedKeys(), tenKeysInOrder);
    EXPECT_TRUE(registry.messenger().hasHandler(bitsdojo_window::BitsdojoWindowPlugin::channelName));
    EXPECT_EQ(registeredPlugins(), (std::vector<int>{2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

}  // namespace
}  // namespace vornix::host::testing
