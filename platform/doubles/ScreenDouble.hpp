#pragma once

#include "platform/Screen.hpp"

namespace vornix::platform::doubles {

// A display with fixed rectangles, e.g. a menu bar (visible frame lower than the screen) and
// a dock on the left (visible frame starting right of the screen's left edge).
class ScreenDouble : public Screen {
public:
    ScreenDouble(Rect frame, Rect visibleFrame) : frame_(frame), visibleFrame_(visibleFrame) {}

    Rect frame() const override { return frame_; }
    Rect visibleFrame() const override { return visibleFrame_; }

private:
    Rect frame_;
    Rect visibleFrame_;
};

}  // namespace vornix::platform::doubles
