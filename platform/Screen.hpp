#pragma once

#include "platform/Geometry.hpp"

namespace vornix::platform {

// One display as AppKit describes it (NSScreen), in AppKit coordinates.
class Screen {
public:
    virtual ~Screen() = default;

    // The whole display (`frame`).
    virtual Rect frame() const = 0;
    // The display without the menu bar and the dock (`visibleFrame`).
    virtual Rect visibleFrame() const = 0;
};

}  // namespace vornix::platform
