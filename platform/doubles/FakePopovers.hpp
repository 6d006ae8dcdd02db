#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Popover.hpp"
#include "platform/doubles/EventLog.hpp"

namespace vornix::platform::doubles {

// Keeps what was rendered last and plays the user's pointer, click and switch events.
class FakePopoverView : public PopoverView {
public:
    explicit FakePopoverView(EventLog* log = nullptr) : log_(log) {}

    void render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) override;
    void setEvents(PopoverViewEvents* events) override { events_ = events; }

    // The user's actions; each needs someone listening.
    void hover(const std::string& hoverId, bool inside);
    void click(const std::string& hoverId);
    void toggle(bool isOn);

    const PopoverLayout& layout() const { return layout_; }
    const std::vector<PopoverRow>& rows() const { return rows_; }
    // The texts of the rows shown, top to bottom (a divider shows as "---").
    std::vector<std::string> texts() const;
    // The row showing this text; std::out_of_range when there is none.
    const PopoverRow& row(const std::string& text) const;
    // The button with this identifier; std::out_of_range when there is none.
    const PopoverRow& button(const std::string& hoverId) const;
    int renderCount() const { return renderCount_; }
    bool hasEvents() const { return events_ != nullptr; }

private:
    PopoverViewEvents& events();

    EventLog* log_;
    PopoverViewEvents* events_ = nullptr;
    PopoverLayout layout_;
    std::vector<PopoverRow> rows_;
    int renderCount_ = 0;
};

class FakePopoverWindow : public PopoverWindow {
public:
    explicit FakePopoverWindow(EventLog* log) : log_(log) {}

    void makeKey() override;

    int makeKeyCount() const { return makeKeyCount_; }

private:
    EventLog* log_;
    int makeKeyCount_ = 0;
};

class FakePopover : public Popover {
public:
    struct ShowCall {
        Rect relativeTo;
        StatusBarButton* of;
        RectEdge preferredEdge;
    };

    explicit FakePopover(EventLog* log) : log_(log), view_(log), window_(log) {}

    void setContentSize(Size size) override;
    void setBehavior(PopoverBehavior behavior) override;
    PopoverView& contentView() override { return view_; }
    bool isShown() const override { return shown_; }
    void show(Rect relativeTo, StatusBarButton& of, RectEdge preferredEdge) override;
    void performClose() override;
    PopoverWindow* contentWindow() override;

    // A click outside the shown popover: a transient popover closes.
    void clickOutside();
    // Whether the content view gets a window when shown (it does by default).
    void setGetsWindow(bool getsWindow) { getsWindow_ = getsWindow; }

    const std::optional<Size>& contentSize() const { return contentSize_; }
    const std::optional<PopoverBehavior>& behavior() const { return behavior_; }
    const std::vector<ShowCall>& showCalls() const { return showCalls_; }
    int closeCount() const { return closeCount_; }
    FakePopoverView& fakeView() { return view_; }
    FakePopoverWindow& fakeWindow() { return window_; }

private:
    void record(const std::string& event);

    EventLog* log_;
    FakePopoverView view_;
    FakePopoverWindow window_;
    std::optional<Size> contentSize_;
    std::optional<PopoverBehavior> behavior_;
    bool shown_ = false;
    bool getsWindow_ = true;
    std::vector<ShowCall> showCalls_;
    int closeCount_ = 0;
};

class FakePopovers : public Popovers {
public:
    explicit FakePopovers(EventLog* log = nullptr) : log_(log) {}

    std::unique_ptr<Popover> makePopover() override;

    // The popovers made so far, as their doubles (owned by whoever asked for them).
    const std::vector<FakePopover*>& made() const { return made_; }

private:
    EventLog* log_;
    std::vector<FakePopover*> made_;
};

}  // namespace vornix::platform::doubles
