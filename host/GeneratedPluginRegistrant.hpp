#pragma once

#include <array>
#include <string_view>

#include "engine/PluginRegistrar.hpp"
#include "engine/PluginRegistry.hpp"

namespace vornix::host {

// A plug-in class's registration, `registerWith(registrar)`.
using PluginRegistration = void (*)(engine::PluginRegistrar* registrar);

// The engine plug-ins a build links, each by the registration of its class; a plug-in the build
// does not have stays empty. Only the window library's plug-in is this system's own; the others
// are packages of the engine's ecosystem that a build may or may not link.
struct LinkedPlugins {
    PluginRegistration bitsdojoWindowPlugin = nullptr;
    PluginRegistration deviceInfoPlusMacosPlugin = nullptr;
    PluginRegistration flutterLocalNotificationsPlugin = nullptr;
    PluginRegistration menubarPlugin = nullptr;
    PluginRegistration fltPackageInfoPlusPlugin = nullptr;
    PluginRegistration pathProviderPlugin = nullptr;
    PluginRegistration sentryFlutterPlugin = nullptr;
    PluginRegistration sharedPreferencesPlugin = nullptr;
    PluginRegistration systemTrayPlugin = nullptr;
    PluginRegistration urlLauncherPlugin = nullptr;
};

// One row of the engine's plug-in table: the key its registrar is asked for, and where a build
// puts the plug-in's registration.
struct GeneratedPlugin {
    std::string_view registrarKey;
    PluginRegistration LinkedPlugins::*registration;
};

// Every engine plug-in in the order it registers in (alphabetical by package), kept exactly.
inline constexpr std::array<GeneratedPlugin, 10> generatedPlugins{{
    {"BitsdojoWindowPlugin", &LinkedPlugins::bitsdojoWindowPlugin},
    {"DeviceInfoPlusMacosPlugin", &LinkedPlugins::deviceInfoPlusMacosPlugin},
    {"FlutterLocalNotificationsPlugin", &LinkedPlugins::flutterLocalNotificationsPlugin},
    {"MenubarPlugin", &LinkedPlugins::menubarPlugin},
    {"FLTPackageInfoPlusPlugin", &LinkedPlugins::fltPackageInfoPlusPlugin},
    {"PathProviderPlugin", &LinkedPlugins::pathProviderPlugin},
    {"SentryFlutterPlugin", &LinkedPlugins::sentryFlutterPlugin},
    {"SharedPreferencesPlugin", &LinkedPlugins::sharedPreferencesPlugin},
    {"SystemTrayPlugin", &LinkedPlugins::systemTrayPlugin},
    {"UrlLauncherPlugin", &LinkedPlugins::urlLauncherPlugin},
}};

// The plug-ins this build links. Each build defines it once, in the file that lists its
// plug-ins (host/PortableLinkedPlugins.cpp for the portable build, target
// vornix_host_linked_plugins); an executable that registers plug-ins links exactly one.
const LinkedPlugins& linkedPlugins();

// Walks the table in its order and registers each plug-in that `plugins` has with the registrar
// the registry gives for its key, passed on as it is (null included). A plug-in that is not
// linked is left out, and its registrar is not asked for.
void registerLinkedPlugins(engine::PluginRegistry& registry, const LinkedPlugins& plugins);

// Registers this build's plug-ins with the engine's registry (its view controller).
void RegisterGeneratedPlugins(engine::PluginRegistry& registry);

}  // namespace vornix::host
