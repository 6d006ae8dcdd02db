#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/Geometry.hpp"
#include "platform/MenuView.hpp"
#include "platform/Port.hpp"

namespace vornix::platform {

// The clickable part of a status item (NSStatusBarButton / the tray icon).
class StatusBarButton {
public:
    using Action = std::function<void()>;

    virtual ~StatusBarButton() = default;

    // Shows the image of that name from the application's resources (none when there is no such image).
    virtual void setImage(std::string_view imageName) = 0;
    // What a click on the button runs.
    virtual void setAction(Action action) = 0;
    virtual Rect bounds() const = 0;
};

// One item in the menu bar (NSStatusItem).
class StatusItem {
public:
    virtual ~StatusItem() = default;

    // The item's button, or null when the item has none.
    virtual StatusBarButton* button() = 0;
    // The menu the desktop's panel draws for the item itself, or null where the panel draws none
    // (on macOS the popover is all the item shows).
    virtual MenuView* menu() { return nullptr; }
};

// The system's menu bar (NSStatusBar.system / the system tray).
class StatusBar : public Port<StatusBar> {
public:
    static constexpr std::string_view portName = "status bar";
    // NSVariableStatusItemLength: the item is as wide as its image.
    static constexpr double variableLength = -1.0;

    virtual ~StatusBar() = default;

    // A new item of that length, kept in the bar while the returned handle lives; null when the bar
    // has none to give.
    virtual std::shared_ptr<StatusItem> statusItem(double length) = 0;
};

}  // namespace vornix::platform
