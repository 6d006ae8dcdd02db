// Stand-in for the flutter_local_notifications plug-in's module (see module.modulemap).
#import <FlutterMacOS/FlutterMacOS.h>

@interface FlutterLocalNotificationsPlugin : NSObject <FlutterPlugin>
@end
