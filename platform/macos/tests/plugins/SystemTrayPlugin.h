// Stand-in for the system_tray plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface SystemTrayPlugin : NSObject <FlutterPlugin>
@end
