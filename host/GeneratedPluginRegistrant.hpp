#pragma once

#include "engine/PluginRegistry.hpp"

namespace vornix::host {

// Registers the engine's plug-ins with `registry`, each under its registrar key, in the fixed
// order of the engine's build (alphabetical by package). The window library's plug-in is this
// system's own and always first; the engine's other plug-ins ("DeviceInfoPlusMacosPlugin",
// "FlutterLocalNotificationsPlugin", "MenubarPlugin", "FLTPackageInfoPlusPlugin",
// "PathProviderPlugin", "SentryFlutterPlugin", "SharedPreferencesPlugin", "SystemTrayPlugin",
// "UrlLauncherPlugin") come with the engine's embedding and are registered in this order where
// a build links them; this build links none of them.
void RegisterGeneratedPlugins(engine::PluginRegistry& registry);

}  // namespace vornix::host
