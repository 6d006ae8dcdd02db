#include "platform/linux/TrayStatusBar.hpp"

#include "platform/linux/Resources.hpp"

namespace vornix::platform::linux {

namespace {

// The size panels draw tray icons at.
constexpr double iconSize = 22.0;

// The icon by name in the icon theme: a symbolic icon, which GNOME Shell fills with the panel's
// text colour and KDE Plasma colours with its colour scheme (the drawing's colour-scheme classes);
// the other panels show it as drawn, a light glyph with a dark edge, legible on dark and light
// panels alike.
constexpr std::string_view themedIconName = "com.vornix.os-symbolic";

}  // namespace

TrayButton::TrayButton(const std::string& menuPath)
    : item_("com.vornix.os", "Vornix OS", menuPath, [this](GdkRectangle area) { click(area); }) {}

void TrayButton::setImage(std::string_view imageName) {
    // The themed icon lies beside the image in the resources, so that a host run from its build
    // tree shows it too, and its pixels are what panels without icon themes show.
    const auto themed = imageFile(themedIconName);
    const auto file = themed ? themed : imageFile(imageName);
    item_.setIcon(themed ? std::string(themedIconName) : std::string(imageName),
                  file ? file->parent_path().string() : std::string(), file ? file->string() : std::string());
}

void TrayButton::setAction(Action action) { action_ = std::move(action); }

Rect TrayButton::bounds() const { return {0.0, 0.0, iconSize, iconSize}; }

void TrayButton::click(std::optional<GdkRectangle> area) {
    screenArea_ = area;
    if (action_) {
        action_();
    }
}

std::shared_ptr<StatusItem> TrayStatusBar::statusItem(double) {
    auto made = std::make_shared<TrayStatusItem>();
    item_ = made;
    return made;
}

}  // namespace vornix::platform::linux
