#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Geometry.hpp"
#include "platform/Screen.hpp"

namespace vornix::platform {

// How a window is placed in the stack of windows (NSWindowOrderingMode, same values).
enum class WindowOrderingMode : long { below = -1, out = 0, above = 1 };

// Whether the title is drawn in the title bar (NSWindowTitleVisibility, same values).
enum class TitleVisibility : long { visible = 0, hidden = 1 };

// The bits of a window's style (NSWindowStyleMask, same values).
using StyleMask = std::uint64_t;
namespace windowStyle {
inline constexpr StyleMask borderless = 0;
inline constexpr StyleMask titled = 1u << 0;
inline constexpr StyleMask resizable = 1u << 3;
inline constexpr StyleMask fullSizeContentView = 1u << 15;
}  // namespace windowStyle

// An input event of the platform (NSEvent), handed back to the window untouched.
class Event {
public:
    virtual ~Event() = default;
};

// One top-level window in AppKit's terms (NSWindow): frames are AppKit rectangles (origin at the
// bottom left, y upwards). Each method is one AppKit call. Windows are always owned by a
// shared_ptr, so that work queued for a window can keep it alive until it has run.
class Window : public std::enable_shared_from_this<Window> {
public:
    virtual ~Window() = default;

    virtual Rect frame() const = 0;
    // setFrame:display:
    virtual void setFrame(Rect frame, bool display) = 0;
    // setFrame:display:animate:
    virtual void setFrameAnimate(Rect frame, bool display, bool animate) = 0;
    virtual void setFrameTopLeftPoint(Point point) = 0;
    // The screen the window is on; null when it is on none.
    virtual std::shared_ptr<Screen> screen() const = 0;
    virtual void setMinSize(Size size) = 0;
    virtual void setMaxSize(Size size) = 0;

    virtual bool isVisible() const = 0;
    virtual void setIsVisible(bool visible) = 0;
    // canBecomeKeyWindow
    virtual bool canBecomeKey() const = 0;
    // makeKeyAndOrderFront: with no sender; orders the window through orderWindow.
    virtual void makeKeyAndOrderFront() = 0;
    // orderWindow:relativeTo: the primitive every ordering of the window goes through.
    // `relativeTo` is another window's number, 0 for all windows.
    virtual void orderWindow(WindowOrderingMode mode, long relativeTo) = 0;

    virtual bool isZoomed() const = 0;
    // zoom: with no sender: toggles between the zoomed and the user's frame.
    virtual void zoom() = 0;
    // miniaturize: with no sender.
    virtual void miniaturize() = 0;
    // close, without asking the delegate.
    virtual void close() = 0;
    virtual void setTitle(std::string title) = 0;

    virtual std::shared_ptr<Event> currentEvent() const = 0;
    // performWindowDragWithEvent:
    virtual void performWindowDrag(std::shared_ptr<Event> event) = 0;

    // The frame of the content view; absent when the window has none.
    virtual std::optional<Rect> contentViewFrame() const = 0;
    virtual Rect contentLayoutRect() const = 0;

    virtual StyleMask styleMask() const = 0;
    virtual void setStyleMask(StyleMask mask) = 0;
    virtual void setTitlebarAppearsTransparent(bool transparent) = 0;
    virtual void setTitleVisibility(TitleVisibility visibility) = 0;
    virtual void setOpaque(bool opaque) = 0;
    virtual void setMovable(bool movable) = 0;
};

}  // namespace vornix::platform
