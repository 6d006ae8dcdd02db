#pragma once

#include <memory>
#include <string_view>

#include "platform/Geometry.hpp"
#include "platform/Port.hpp"
#include "platform/PopoverView.hpp"
#include "platform/StatusBar.hpp"

namespace vornix::platform {

// NSPopoverBehavior's values.
enum class PopoverBehavior { applicationDefined = 0, transient = 1, semitransient = 2 };
// NSRectEdge's values.
enum class RectEdge { minX = 0, minY = 1, maxX = 2, maxY = 3 };

// The window a popover's content is in.
class PopoverWindow {
public:
    virtual ~PopoverWindow() = default;

    // Makes it the key window, so that it takes keyboard focus.
    virtual void makeKey() = 0;
};

// A panel shown next to a rectangle of a status bar button (NSPopover / a popup window).
class Popover {
public:
    virtual ~Popover() = default;

    virtual void setContentSize(Size size) = 0;
    virtual void setBehavior(PopoverBehavior behavior) = 0;
    // The view the popover shows; its content renders into it.
    virtual PopoverView& contentView() = 0;
    virtual bool isShown() const = 0;
    // Shows the popover next to `rect` (in the button's coordinates) on the preferred edge.
    virtual void show(Rect relativeTo, StatusBarButton& of, RectEdge preferredEdge) = 0;
    // Closes it as if the user had clicked elsewhere.
    virtual void performClose() = 0;
    // The window of the content view, or null while it has none.
    virtual PopoverWindow* contentWindow() = 0;
};

// Makes popovers.
class Popovers : public Port<Popovers> {
public:
    static constexpr std::string_view portName = "popovers";

    virtual ~Popovers() = default;

    virtual std::unique_ptr<Popover> makePopover() = 0;
};

}  // namespace vornix::platform
