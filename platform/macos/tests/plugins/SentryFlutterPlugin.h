// Stand-in for the sentry_flutter plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface SentryFlutterPlugin : NSObject <FlutterPlugin>
@end
