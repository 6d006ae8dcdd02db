#import "platform/macos/GeneratedPluginRegistrant.h"

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"
#include "host/GeneratedPluginRegistrant.hpp"
#include "platform/macos/FlutterMacOSViewController.hpp"

namespace vornix::host {

namespace {

// An engine plug-in registers with the engine's own registrar, which the macOS registry's registrars
// carry. A missing registrar is passed on as nil, as it came.
template <void (*registerPlugin)(id<FlutterPluginRegistrar> _Nullable)>
void registerFlutterPlugin(engine::PluginRegistrar* registrar) {
    auto* flutterRegistrar = static_cast<platform::macos::FlutterMacOSRegistrar*>(registrar);
    registerPlugin(flutterRegistrar != nullptr ? flutterRegistrar->flutterRegistrar() : nil);
}

}  // namespace

// The macOS build links all ten plug-ins.
const LinkedPlugins& linkedPlugins() {
    static constexpr LinkedPlugins plugins{
        .bitsdojoWindowPlugin = &bitsdojo_window::BitsdojoWindowPlugin::registerWith,
        .deviceInfoPlusMacosPlugin = &registerFlutterPlugin<vxRegisterDeviceInfoPlusMacosPlugin>,
        .flutterLocalNotificationsPlugin = &registerFlutterPlugin<vxRegisterFlutterLocalNotificationsPlugin>,
        .menubarPlugin = &registerFlutterPlugin<vxRegisterMenubarPlugin>,
        .fltPackageInfoPlusPlugin = &registerFlutterPlugin<vxRegisterFLTPackageInfoPlusPlugin>,
        .pathProviderPlugin = &registerFlutterPlugin<vxRegisterPathProviderPlugin>,
        .sentryFlutterPlugin = &registerFlutterPlugin<vxRegisterSentryFlutterPlugin>,
        .sharedPreferencesPlugin = &registerFlutterPlugin<vxRegisterSharedPreferencesPlugin>,
        .systemTrayPlugin = &registerFlutterPlugin<vxRegisterSystemTrayPlugin>,
        .urlLauncherPlugin = &registerFlutterPlugin<vxRegisterUrlLauncherPlugin>,
    };
    return plugins;
}

}  // namespace vornix::host
