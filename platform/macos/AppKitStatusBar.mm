#include "platform/macos/AppKitStatusBar.hpp"

#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

void AppKitStatusBarButton::setImage(std::string_view imageName) {
    NSImage* image = [NSImage imageNamed:toNSString(imageName)];
    [image setTemplate:YES];
    button_.image = image;
}

void AppKitStatusBarButton::setAction(Action action) {
    action_ = std::move(action);
    button_.target = nil;
    button_.action = @selector(performStatusItemAction:);
}

Rect AppKitStatusBarButton::bounds() const { return toRect(button_.bounds); }

AppKitStatusItem::AppKitStatusItem(NSStatusItem* item)
    : item_(item), button_(item.button != nil ? std::make_unique<AppKitStatusBarButton>(item.button) : nullptr) {}

AppKitStatusItem::~AppKitStatusItem() { [NSStatusBar.systemStatusBar removeStatusItem:item_]; }

std::shared_ptr<StatusItem> AppKitStatusBar::statusItem(double length) {
    auto item = std::make_shared<AppKitStatusItem>([NSStatusBar.systemStatusBar statusItemWithLength:length]);
    std::erase_if(items_, [](const std::weak_ptr<AppKitStatusItem>& kept) { return kept.expired(); });
    items_.push_back(item);
    return item;
}

void AppKitStatusBar::performAction(id sender) const {
    for (const std::weak_ptr<AppKitStatusItem>& kept : items_) {
        const std::shared_ptr<AppKitStatusItem> item = kept.lock();
        auto* button = item != nullptr ? static_cast<AppKitStatusBarButton*>(item->button()) : nullptr;
        if (button != nullptr && button->nsButton() == sender && button->action()) {
            button->action()();
        }
    }
}

}  // namespace vornix::platform::macos
