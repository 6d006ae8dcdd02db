// Stand-in for the package_info_plus plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface FLTPackageInfoPlusPlugin : NSObject <FlutterPlugin>
@end
