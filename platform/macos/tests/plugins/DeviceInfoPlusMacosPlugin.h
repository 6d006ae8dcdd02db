// Stand-in for the device_info_plus plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface DeviceInfoPlusMacosPlugin : NSObject <FlutterPlugin>
@end
