// Stand-in for the url_launcher_macos plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface UrlLauncherPlugin : NSObject <FlutterPlugin>
@end
