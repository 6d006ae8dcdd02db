#pragma once

#import <Foundation/Foundation.h>

#include <map>
#include <utility>

#include "platform/AppleEventManager.hpp"

// The object NSAppleEventManager calls for one event class and ID; it hands the event to the
// core's handler.
@interface VXAppleEventHandler : NSObject
- (void)handleEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)replyEvent;
@end

namespace vornix::platform::macos {

// Apple Events on macOS: NSAppleEventManager.sharedAppleEventManager. The event is handed to the
// core with its direct object, which is all the core reads of one.
class AppKitAppleEventManager final : public AppleEventManager {
public:
    ~AppKitAppleEventManager() override;

    void setEventHandler(EventHandler handler, FourCharCode eventClass, FourCharCode eventID) override;
    void removeEventHandler(FourCharCode eventClass, FourCharCode eventID) override;

private:
    // NSAppleEventManager does not retain its handlers: they are kept here while installed.
    std::map<std::pair<FourCharCode, FourCharCode>, VXAppleEventHandler*> handlers_;
};

}  // namespace vornix::platform::macos
