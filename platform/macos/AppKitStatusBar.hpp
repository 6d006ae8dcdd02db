#pragma once

#import <AppKit/AppKit.h>

#include <memory>
#include <vector>

#include "platform/StatusBar.hpp"

namespace vornix::platform::macos {

// A status item's button on macOS. Its action has no target: AppKit sends it up the responder
// chain, to the application delegate, which hands it back to the status bar to run.
class AppKitStatusBarButton final : public StatusBarButton {
public:
    explicit AppKitStatusBarButton(NSStatusBarButton* button) : button_(button) {}

    void setImage(std::string_view imageName) override;
    void setAction(Action action) override;
    Rect bounds() const override;

    NSStatusBarButton* nsButton() const { return button_; }
    const Action& action() const { return action_; }

private:
    NSStatusBarButton* button_;
    Action action_;
};

// One NSStatusItem, removed from the bar when the core lets go of it.
class AppKitStatusItem final : public StatusItem {
public:
    explicit AppKitStatusItem(NSStatusItem* item);
    ~AppKitStatusItem() override;

    StatusBarButton* button() override { return button_.get(); }

private:
    NSStatusItem* item_;
    std::unique_ptr<AppKitStatusBarButton> button_;
};

// NSStatusBar.systemStatusBar.
class AppKitStatusBar final : public StatusBar {
public:
    std::shared_ptr<StatusItem> statusItem(double length) override;

    // Runs the action of the item whose button sent it (the selector below, arriving at the
    // application delegate through the responder chain).
    void performAction(id sender) const;

private:
    std::vector<std::weak_ptr<AppKitStatusItem>> items_;
};

}  // namespace vornix::platform::macos

// The action a status item's button sends, with no target.
@protocol VXStatusItemActions
- (void)performStatusItemAction:(id)sender;
@end
