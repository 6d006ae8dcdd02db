#pragma once

#import <FlutterMacOS/FlutterMacOS.h>

// The engine plug-ins of the Flutter application that a macOS build links, one function per
// plug-in that sends its class registerWithRegistrar:. They are defined in Objective-C with
// modules (GeneratedPluginRegistrant.m), where each plug-in's own module declares its class; the
// Objective-C++ that calls them needs no modules. The window library's plug-in is this host's own
// C++ and is not among them.

NS_ASSUME_NONNULL_BEGIN

FOUNDATION_EXTERN void vxRegisterDeviceInfoPlusMacosPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterFlutterLocalNotificationsPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterMenubarPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterFLTPackageInfoPlusPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterPathProviderPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterSentryFlutterPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterSharedPreferencesPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterSystemTrayPlugin(id<FlutterPluginRegistrar> _Nullable registrar);
FOUNDATION_EXTERN void vxRegisterUrlLauncherPlugin(id<FlutterPluginRegistrar> _Nullable registrar);

NS_ASSUME_NONNULL_END
