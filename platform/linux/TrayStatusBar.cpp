#include "platform/linux/TrayStatusBar.hpp"

#include "platform/linux/Resources.hpp"

namespace vornix::platform::linux {

namespace {

// The size panels draw tray icons at.
constexpr double iconSize = 22.0;

}  // namespace

TrayButton::TrayButton() : item_("vornix-os", "Vornix OS", [this](GdkRectangle area) { click(area); }) {}

void TrayButton::setImage(std::string_view imageName) {
    const auto file = imageFile(imageName);
    item_.setIcon(std::string(imageName), file ? file->parent_path().string() : std::string(),
                  file ? file->string() : std::string());
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
