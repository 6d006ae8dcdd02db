#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/StatusBar.hpp"
#include "platform/doubles/EventLog.hpp"

namespace vornix::platform::doubles {

class FakeStatusBarButton : public StatusBarButton {
public:
    explicit FakeStatusBarButton(EventLog* log) : log_(log) {}

    void setImage(std::string_view imageName) override;
    void setAction(Action action) override;
    Rect bounds() const override { return bounds_; }

    // What the user's click does: runs the action, if one is set.
    void click();

    const std::optional<std::string>& imageName() const { return imageName_; }
    bool hasAction() const { return static_cast<bool>(action_); }
    void setBounds(Rect bounds) { bounds_ = bounds; }

private:
    EventLog* log_;
    std::optional<std::string> imageName_;
    Action action_;
    Rect bounds_{0.0, 0.0, 24.0, 22.0};
};

// Keeps what the menu holds now and plays the user's choices.
class FakeMenuView : public MenuView {
public:
    void render(const std::vector<MenuItem>& items) override {
        items_ = items;
        ++renderCount_;
    }
    void setEvents(MenuViewEvents* events) override { events_ = events; }

    // The user chooses the item `id`; std::logic_error when nobody listens.
    void choose(const std::string& id);
    const std::vector<MenuItem>& items() const { return items_; }
    // The item labelled so; std::out_of_range when there is none.
    const MenuItem& item(const std::string& label) const;
    int renderCount() const { return renderCount_; }
    bool hasEvents() const { return events_ != nullptr; }

private:
    MenuViewEvents* events_ = nullptr;
    std::vector<MenuItem> items_;
    int renderCount_ = 0;
};

class FakeStatusItem : public StatusItem {
public:
    FakeStatusItem(double length, bool withButton, EventLog* log);

    StatusBarButton* button() override { return button_.get(); }
    MenuView* menu() override { return withMenu_ ? &menu_ : nullptr; }

    FakeMenuView& fakeMenu() { return menu_; }
    void setHasMenu(bool withMenu) { withMenu_ = withMenu; }

    double length() const { return length_; }
    // The button as its double, or null when the item has none.
    FakeStatusBarButton* fakeButton() { return button_.get(); }

private:
    double length_;
    std::unique_ptr<FakeStatusBarButton> button_;
    FakeMenuView menu_;
    bool withMenu_ = false;
};

// A status bar that hands out items; it can be told to give items without a button, or none at all.
class FakeStatusBar : public StatusBar {
public:
    explicit FakeStatusBar(EventLog* log = nullptr) : log_(log) {}

    std::shared_ptr<StatusItem> statusItem(double length) override;

    void setGivesItems(bool givesItems) { givesItems_ = givesItems; }
    void setItemsHaveButtons(bool itemsHaveButtons) { itemsHaveButtons_ = itemsHaveButtons; }
    // Items made from now on have a menu of their own, as tray items do.
    void setItemsHaveMenus(bool itemsHaveMenus) { itemsHaveMenus_ = itemsHaveMenus; }
    const std::vector<std::shared_ptr<FakeStatusItem>>& items() const { return items_; }

private:
    EventLog* log_;
    bool givesItems_ = true;
    bool itemsHaveButtons_ = true;
    bool itemsHaveMenus_ = false;
    std::vector<std::shared_ptr<FakeStatusItem>> items_;
};

}  // namespace vornix::platform::doubles
