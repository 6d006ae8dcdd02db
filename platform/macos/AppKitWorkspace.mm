#include "platform/macos/AppKitWorkspace.hpp"

#import <AppKit/AppKit.h>

#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

namespace {

// A URL the core parsed but Foundation refuses becomes nil, which NSWorkspace answers with NO / nil.
NSURL* toNSURL(const url::URL& url) { return [NSURL URLWithString:toNSString(url.absoluteString())]; }

}  // namespace

bool AppKitWorkspace::open(const url::URL& url) {
    NSURL* location = toNSURL(url);
    return location != nil && [NSWorkspace.sharedWorkspace openURL:location];
}

std::optional<url::URL> AppKitWorkspace::urlForApplication(const url::URL& toOpen) {
    NSURL* location = toNSURL(toOpen);
    NSURL* application = location != nil ? [NSWorkspace.sharedWorkspace URLForApplicationToOpenURL:location] : nil;
    if (application == nil) {
        return std::nullopt;
    }
    return url::URL::parse(toString(application.absoluteString));
}

}  // namespace vornix::platform::macos
