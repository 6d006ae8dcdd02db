#pragma once

#include <gdk/gdk.h>

namespace vornix::platform::linux {

// Whether the Wayland compositor behind `display` offers the global `interface` (a protocol's
// interface name). Asks the compositor once, on an event queue of its own, so GDK's events wait.
bool compositorOffers(GdkDisplay* display, const char* interface);

}  // namespace vornix::platform::linux
