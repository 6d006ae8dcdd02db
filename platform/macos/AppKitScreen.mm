#include "platform/macos/AppKitScreen.hpp"

#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

Rect AppKitScreen::frame() const { return toRect(screen_.frame); }

Rect AppKitScreen::visibleFrame() const { return toRect(screen_.visibleFrame); }

}  // namespace vornix::platform::macos
