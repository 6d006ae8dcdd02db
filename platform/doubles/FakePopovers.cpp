#include "platform/doubles/FakePopovers.hpp"

#include <sstream>
#include <stdexcept>

namespace vornix::platform::doubles {

void FakePopoverView::render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) {
    layout_ = layout;
    rows_ = rows;
    ++renderCount_;
    if (log_ != nullptr) {
        log_->record("popoverView.render");
    }
}

PopoverViewEvents& FakePopoverView::events() {
    if (events_ == nullptr) {
        throw std::logic_error("nothing listens to the popover view");
    }
    return *events_;
}

void FakePopoverView::hover(const std::string& hoverId, bool inside) { events().buttonHovered(hoverId, inside); }

void FakePopoverView::click(const std::string& hoverId) { events().buttonClicked(hoverId); }

void FakePopoverView::toggle(bool isOn) { events().switchToggled(isOn); }

std::vector<std::string> FakePopoverView::texts() const {
    std::vector<std::string> texts;
    for (const PopoverRow& row : rows_) {
        texts.push_back(row.kind == RowKind::divider ? "---" : row.text);
    }
    return texts;
}

const PopoverRow& FakePopoverView::row(const std::string& text) const {
    for (const PopoverRow& row : rows_) {
        if (row.kind != RowKind::divider && row.text == text) {
            return row;
        }
    }
    throw std::out_of_range("no row shows \"" + text + "\"");
}

const PopoverRow& FakePopoverView::button(const std::string& hoverId) const {
    for (const PopoverRow& row : rows_) {
        if (row.kind == RowKind::button && row.hoverId == hoverId) {
            return row;
        }
    }
    throw std::out_of_range("no button \"" + hoverId + "\"");
}

void FakePopoverWindow::makeKey() {
    ++makeKeyCount_;
    if (log_ != nullptr) {
        log_->record("popoverWindow.makeKey");
    }
}

void FakePopover::record(const std::string& event) {
    if (log_ != nullptr) {
        log_->record(event);
    }
}

void FakePopover::setContentSize(Size size) {
    contentSize_ = size;
    std::ostringstream event;
    event << "popover.contentSize " << size.width << "x" << size.height;
    record(event.str());
}

void FakePopover::setBehavior(PopoverBehavior behavior) {
    behavior_ = behavior;
    record("popover.behavior " + std::to_string(static_cast<int>(behavior)));
}

void FakePopover::show(Rect relativeTo, StatusBarButton& of, RectEdge preferredEdge) {
    showCalls_.push_back({relativeTo, &of, preferredEdge});
    shown_ = true;
    record("popover.show edge " + std::to_string(static_cast<int>(preferredEdge)));
}

void FakePopover::performClose() {
    ++closeCount_;
    shown_ = false;
    record("popover.performClose");
}

PopoverWindow* FakePopover::contentWindow() { return shown_ && getsWindow_ ? &window_ : nullptr; }

void FakePopover::clickOutside() {
    if (shown_ && behavior_ == PopoverBehavior::transient) {
        shown_ = false;
    }
}

std::unique_ptr<Popover> FakePopovers::makePopover() {
    if (log_ != nullptr) {
        log_->record("popovers.makePopover");
    }
    auto popover = std::make_unique<FakePopover>(log_);
    made_.push_back(popover.get());
    return popover;
}

}  // namespace vornix::platform::doubles
