#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/StatusBar.hpp"
#include "platform/linux/DbusMenuView.hpp"
#include "platform/linux/StatusNotifierItem.hpp"

namespace vornix::platform::linux {

// The status item's button in the tray. Its bounds are the icon's size; where it is on the
// screen is only known when it is clicked, so it keeps the last click's area for the popover.
class TrayButton : public StatusBarButton {
public:
    // The item's menu is the one exported at `menuPath`.
    explicit TrayButton(const std::string& menuPath);

    void setImage(std::string_view imageName) override;
    void setAction(Action action) override;
    Rect bounds() const override;

    // The screen area (top-left origin) of the click being handled, or of the last one.
    std::optional<GdkRectangle> screenArea() const { return screenArea_; }
    // The activation token the panel gave with the click being handled, once.
    std::string takeActivationToken() { return item_.takeActivationToken(); }
    // Runs the button's action as a click over `area` would.
    void click(std::optional<GdkRectangle> area);

private:
    StatusNotifierItem item_;
    Action action_;
    std::optional<GdkRectangle> screenArea_;
};

// The tray item: its icon and the menu that the panel draws for it.
class TrayStatusItem : public StatusItem {
public:
    StatusBarButton* button() override { return &button_; }
    MenuView* menu() override { return &menu_; }
    TrayButton& trayButton() { return button_; }

private:
    DbusMenuView menu_;
    TrayButton button_{DbusMenuView::objectPath};
};

// The system tray as a status bar: it holds one item, the host's.
class TrayStatusBar : public StatusBar {
public:
    std::shared_ptr<StatusItem> statusItem(double length) override;

    // The item made last, while it lives (a launch with no tray click toggles through it).
    std::shared_ptr<TrayStatusItem> item() const { return item_.lock(); }

private:
    std::weak_ptr<TrayStatusItem> item_;
};

}  // namespace vornix::platform::linux
