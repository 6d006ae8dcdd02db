// A click on the status item's button sends its action with no target; AppKit carries it up the
// responder chain to the application's delegate, which hands it back to the status bar to run.
#include "platform/macos/AppKitStatusBar.hpp"

#include <gtest/gtest.h>

// An application delegate that, like the host's, passes the status item's action on.
@interface VXStatusItemTestDelegate : NSObject <NSApplicationDelegate, VXStatusItemActions>
@property(nonatomic) vornix::platform::macos::AppKitStatusBar* statusBar;
@end

@implementation VXStatusItemTestDelegate
- (void)performStatusItemAction:(id)sender {
    self.statusBar->performAction(sender);
}
@end

namespace {

TEST(AppKitStatusBar, TheButtonsActionReachesTheApplicationDelegate) {
    vornix::platform::macos::AppKitStatusBar statusBar;
    VXStatusItemTestDelegate* delegate = [[VXStatusItemTestDelegate alloc] init];
    delegate.statusBar = &statusBar;
    NSApp.delegate = delegate;

    const auto item = statusBar.statusItem(-1.0);
    auto* button = static_cast<vornix::platform::macos::AppKitStatusBarButton*>(item->button());
    ASSERT_NE(button, nullptr);
    int clicks = 0;
    button->setAction([&clicks] { ++clicks; });
    EXPECT_TRUE(button->nsButton().target == nil);

    [button->nsButton() performClick:nil];
    EXPECT_EQ(clicks, 1);
    [button->nsButton() performClick:nil];
    EXPECT_EQ(clicks, 2);

    NSApp.delegate = nil;
}

}  // namespace
