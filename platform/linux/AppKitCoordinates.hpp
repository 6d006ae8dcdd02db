#pragma once

#include "platform/Geometry.hpp"

namespace vornix::platform::linux {

// GDK counts screen pixels from the top left of the whole screen area, y downwards; the core
// counts AppKit points from the bottom left of the primary monitor, y upwards. `primary` is the
// primary monitor's rectangle in GDK's terms (x, y of its top left corner, width, height).
Rect appKitRectFromGdk(Rect gdk, Rect primary);
Rect gdkRectFromAppKit(Rect appKit, Rect primary);
// A window's top left corner, given in AppKit's terms, in GDK's.
Point gdkTopLeftFromAppKit(Point appKit, Rect primary);

}  // namespace vornix::platform::linux
