// Stand-in for the shared_preferences_foundation plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface SharedPreferencesPlugin : NSObject <FlutterPlugin>
@end
