// Stand-in for the menubar plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface MenubarPlugin : NSObject <FlutterPlugin>
@end
