#pragma once

#import <FlutterMacOS/FlutterMacOS.h>

// The engine plug-ins of the Flutter application that a macOS build links, as the engine's
// tooling declares them: each an Objective-C class that registers itself with its registrar.
// The frameworks that define them come with the Flutter application. The window library's
// plug-in is this host's own C++ and is not among them.

NS_ASSUME_NONNULL_BEGIN

@interface DeviceInfoPlusMacosPlugin : NSObject <FlutterPlugin>
@end

@interface FlutterLocalNotificationsPlugin : NSObject <FlutterPlugin>
@end

@interface MenubarPlugin : NSObject <FlutterPlugin>
@end

@interface FLTPackageInfoPlusPlugin : NSObject <FlutterPlugin>
@end

@interface PathProviderPlugin : NSObject <FlutterPlugin>
@end

@interface SentryFlutterPlugin : NSObject <FlutterPlugin>
@end

@interface SharedPreferencesPlugin : NSObject <FlutterPlugin>
@end

@interface SystemTrayPlugin : NSObject <FlutterPlugin>
@end

@interface UrlLauncherPlugin : NSObject <FlutterPlugin>
@end

NS_ASSUME_NONNULL_END
