#include "platform/linux/AppKitCoordinates.hpp"

namespace vornix::platform::linux {

Rect appKitRectFromGdk(Rect gdk, Rect primary) {
    return {gdk.x - primary.x, (primary.y + primary.height) - (gdk.y + gdk.height), gdk.width, gdk.height};
}

Rect gdkRectFromAppKit(Rect appKit, Rect primary) {
    return {appKit.x + primary.x, (primary.y + primary.height) - (appKit.y + appKit.height), appKit.width,
            appKit.height};
}

Point gdkTopLeftFromAppKit(Point appKit, Rect primary) {
    return {appKit.x + primary.x, (primary.y + primary.height) - appKit.y};
}

}  // namespace vornix::platform::linux
