#include "platform/doubles/FakeStatusBar.hpp"

#include <sstream>
#include <stdexcept>

namespace vornix::platform::doubles {

void FakeStatusBarButton::setImage(std::string_view imageName) {
    imageName_ = std::string(imageName);
    if (log_ != nullptr) {
        log_->record("statusBarButton.image " + std::string(imageName));
    }
}

void FakeStatusBarButton::setAction(Action action) {
    action_ = std::move(action);
    if (log_ != nullptr) {
        log_->record("statusBarButton.action");
    }
}

void FakeStatusBarButton::click() {
    if (action_) {
        action_();
    }
}

void FakeMenuView::choose(const std::string& id) {
    if (events_ == nullptr) {
        throw std::logic_error("nobody listens to the menu");
    }
    events_->menuItemClicked(id);
}

const MenuItem& FakeMenuView::item(const std::string& label) const {
    for (const auto& item : items_) {
        if (item.label == label) {
            return item;
        }
    }
    throw std::out_of_range("no menu item labelled " + label);
}

FakeStatusItem::FakeStatusItem(double length, bool withButton, EventLog* log)
    : length_(length), button_(withButton ? std::make_unique<FakeStatusBarButton>(log) : nullptr) {}

std::shared_ptr<StatusItem> FakeStatusBar::statusItem(double length) {
    if (log_ != nullptr) {
        std::ostringstream event;
        event << "statusBar.statusItem " << length;
        log_->record(event.str());
    }
    if (!givesItems_) {
        return nullptr;
    }
    auto item = std::make_shared<FakeStatusItem>(length, itemsHaveButtons_, log_);
    item->setHasMenu(itemsHaveMenus_);
    items_.push_back(item);
    return item;
}

}  // namespace vornix::platform::doubles
