#include "platform/macos/AppKitAppleEventManager.hpp"

#include "platform/macos/Conversions.hpp"

namespace macos = vornix::platform::macos;

namespace {

// Reads one parameter of an event into the core's form; a parameter without text has none.
vornix::platform::AppleEventDescriptor descriptorOf(NSAppleEventDescriptor* parameter) {
    NSString* text = parameter.stringValue;
    return {text != nil ? std::optional<std::string>(macos::toString(text)) : std::nullopt};
}

}  // namespace

@implementation VXAppleEventHandler {
    vornix::platform::AppleEventManager::EventHandler _handler;
}

- (instancetype)initWithHandler:(vornix::platform::AppleEventManager::EventHandler)handler {
    if ((self = [super init])) {
        _handler = std::move(handler);
    }
    return self;
}

- (void)handleEvent:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)replyEvent {
    (void)replyEvent;
    vornix::platform::AppleEvent received;
    if (NSAppleEventDescriptor* directObject = [event paramDescriptorForKeyword:keyDirectObject]) {
        received.setParamDescriptor(descriptorOf(directObject), vornix::platform::directObjectKeyword);
    }
    vornix::platform::AppleEvent reply;
    _handler(received, reply);
}

@end

namespace vornix::platform::macos {

AppKitAppleEventManager::~AppKitAppleEventManager() {
    for (const auto& [key, handler] : handlers_) {
        [NSAppleEventManager.sharedAppleEventManager removeEventHandlerForEventClass:key.first andEventID:key.second];
    }
}

void AppKitAppleEventManager::setEventHandler(EventHandler handler, FourCharCode eventClass, FourCharCode eventID) {
    VXAppleEventHandler* target = [[VXAppleEventHandler alloc] initWithHandler:std::move(handler)];
    handlers_.insert_or_assign({eventClass, eventID}, target);
    [NSAppleEventManager.sharedAppleEventManager setEventHandler:target
                                                     andSelector:@selector(handleEvent:withReplyEvent:)
                                                   forEventClass:eventClass
                                                      andEventID:eventID];
}

void AppKitAppleEventManager::removeEventHandler(FourCharCode eventClass, FourCharCode eventID) {
    [NSAppleEventManager.sharedAppleEventManager removeEventHandlerForEventClass:eventClass andEventID:eventID];
    handlers_.erase({eventClass, eventID});
}

}  // namespace vornix::platform::macos
