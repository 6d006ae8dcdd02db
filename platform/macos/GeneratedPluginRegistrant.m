#import "platform/macos/GeneratedPluginRegistrant.h"

// Each plug-in's class as its own module declares it, as the engine's tooling imports plug-ins:
// most are written in Swift, and only their module's generated header knows the Objective-C
// runtime name their class is linked by. This file is Objective-C, compiled with modules.
@import device_info_plus;
@import flutter_local_notifications;
@import menubar;
@import package_info_plus;
@import path_provider_foundation;
@import sentry_flutter;
@import shared_preferences_foundation;
@import system_tray;
@import url_launcher_macos;

void vxRegisterDeviceInfoPlusMacosPlugin(id<FlutterPluginRegistrar> registrar) {
    [DeviceInfoPlusMacosPlugin registerWithRegistrar:registrar];
}

void vxRegisterFlutterLocalNotificationsPlugin(id<FlutterPluginRegistrar> registrar) {
    [FlutterLocalNotificationsPlugin registerWithRegistrar:registrar];
}

void vxRegisterMenubarPlugin(id<FlutterPluginRegistrar> registrar) {
    [MenubarPlugin registerWithRegistrar:registrar];
}

void vxRegisterFLTPackageInfoPlusPlugin(id<FlutterPluginRegistrar> registrar) {
    [FLTPackageInfoPlusPlugin registerWithRegistrar:registrar];
}

void vxRegisterPathProviderPlugin(id<FlutterPluginRegistrar> registrar) {
    [PathProviderPlugin registerWithRegistrar:registrar];
}

void vxRegisterSentryFlutterPlugin(id<FlutterPluginRegistrar> registrar) {
    [SentryFlutterPlugin registerWithRegistrar:registrar];
}

void vxRegisterSharedPreferencesPlugin(id<FlutterPluginRegistrar> registrar) {
    [SharedPreferencesPlugin registerWithRegistrar:registrar];
}

void vxRegisterSystemTrayPlugin(id<FlutterPluginRegistrar> registrar) {
    [SystemTrayPlugin registerWithRegistrar:registrar];
}

void vxRegisterUrlLauncherPlugin(id<FlutterPluginRegistrar> registrar) {
    [UrlLauncherPlugin registerWithRegistrar:registrar];
}
