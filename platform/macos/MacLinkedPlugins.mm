#import "platform/macos/GeneratedPluginRegistrant.h"

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"
#include "host/GeneratedPluginRegistrant.hpp"
#include "platform/macos/FlutterMacOSViewController.hpp"

namespace vornix::host {

namespace {

// An engine plug-in class registers with the engine's own registrar, which the macOS registry's
// registrars carry. A missing registrar is passed on as nil, as it came.
template <class Plugin>
void registerFlutterPlugin(engine::PluginRegistrar* registrar) {
    auto* flutterRegistrar = static_cast<platform::macos::FlutterMacOSRegistrar*>(registrar);
    [Plugin registerWithRegistrar:flutterRegistrar != nullptr ? flutterRegistrar->flutterRegistrar() : nil];
}

}  // namespace

// The macOS build links all ten plug-ins.
const LinkedPlugins& linkedPlugins() {
    static constexpr LinkedPlugins plugins{
        .bitsdojoWindowPlugin = &bitsdojo_window::BitsdojoWindowPlugin::registerWith,
        .deviceInfoPlusMacosPlugin = &registerFlutterPlugin<DeviceInfoPlusMacosPlugin>,
        .flutterLocalNotificationsPlugin = &registerFlutterPlugin<FlutterLocalNotificationsPlugin>,
        .menubarPlugin = &registerFlutterPlugin<MenubarPlugin>,
        .fltPackageInfoPlusPlugin = &registerFlutterPlugin<FLTPackageInfoPlusPlugin>,
        .pathProviderPlugin = &registerFlutterPlugin<PathProviderPlugin>,
        .sentryFlutterPlugin = &registerFlutterPlugin<SentryFlutterPlugin>,
        .sharedPreferencesPlugin = &registerFlutterPlugin<SharedPreferencesPlugin>,
        .systemTrayPlugin = &registerFlutterPlugin<SystemTrayPlugin>,
        .urlLauncherPlugin = &registerFlutterPlugin<UrlLauncherPlugin>,
    };
    return plugins;
}

}  // namespace vornix::host
