// Stand-in for the path_provider_foundation plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface PathProviderPlugin : NSObject <FlutterPlugin>
@end
