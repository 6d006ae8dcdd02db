// The popover's AppKit view shows the rows the core gives it, in order, and follows the account
// state: the rows of a signed-out account, then of a signed-in one, then signed out again, which
// replaces the rows of other kinds each time.
#include "platform/macos/AppKitPopoverView.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/ContentView.hpp"
#include "platform/macos/Conversions.hpp"

namespace {

using vornix::host::ContentView;
using vornix::platform::PopoverRow;
using vornix::platform::RowKind;

// The popover's rows as the core shows them for an account state (the model's version and port
// left as they start).
std::vector<PopoverRow> rowsFor(bool signedIn, const std::string& email) {
    std::vector<PopoverRow> rows;
    for (const ContentView::Row& row : ContentView::rows()) {
        if ((row.shownWhen == ContentView::Shown::signedIn && !signedIn) ||
            (row.shownWhen == ContentView::Shown::signedOut && signedIn)) {
            continue;
        }
        PopoverRow shown;
        shown.kind = row.kind;
        shown.text = row.text + (row.field == ContentView::Field::email ? email : "");
        shown.padding = row.padding;
        shown.font = row.font;
        shown.hoverId = row.hoverId;
        rows.push_back(shown);
    }
    return rows;
}

// What each row of the view shows, top to bottom: a control's or label's accessibility label (the
// row's text), "-" for a separator.
std::vector<std::string> shownTexts(NSStackView* view) {
    std::vector<std::string> texts;
    for (NSStackView* rowView in view.arrangedSubviews) {
        NSView* content = rowView.arrangedSubviews.firstObject;
        if ([content isKindOfClass:[NSBox class]]) {
            texts.emplace_back("-");
        } else if ([content isKindOfClass:[NSStackView class]]) {
            NSView* control = static_cast<NSStackView*>(content).arrangedSubviews.firstObject;
            texts.push_back(vornix::platform::macos::toString(control.accessibilityLabel));
        } else {
            texts.push_back(vornix::platform::macos::toString(content.accessibilityLabel));
        }
    }
    return texts;
}

const std::vector<std::string> commands{"Launch Vornix for Developers", "Discover Integrations", "About", "Get Help",
                                        "Submit Feedback or Issues", "Check for Updates...", "Quit"};

std::vector<std::string> expectedTexts(const std::vector<std::string>& account) {
    std::vector<std::string> texts{"Vornix OS", "Launch on Login", "-", "Account"};
    texts.insert(texts.end(), account.begin(), account.end());
    texts.insert(texts.end(), {"-", "Version: ", "Port: ", "-"});
    texts.insert(texts.end(), commands.begin(), commands.end());
    return texts;
}

// The button whose label is `text`, or nil.
NSButton* buttonLabelled(NSStackView* view, const std::string& text) {
    for (NSStackView* rowView in view.arrangedSubviews) {
        NSView* content = rowView.arrangedSubviews.firstObject;
        if ([content isKindOfClass:[NSButton class]] &&
            vornix::platform::macos::toString(content.accessibilityLabel) == text) {
            return static_cast<NSButton*>(content);
        }
    }
    return nil;
}

TEST(AppKitPopoverView, ShowsTheRowsOfASignInAndASignOut) {
    vornix::platform::macos::AppKitPopoverView view;
    const auto layout = ContentView::layout();
    auto* stack = static_cast<NSStackView*>(view.view());

    view.render(layout, rowsFor(false, ""));
    EXPECT_EQ(shownTexts(stack), expectedTexts({"Sign In..."}));

    view.render(layout, rowsFor(true, "someone@example.com"));
    EXPECT_EQ(shownTexts(stack), expectedTexts({"someone@example.com", "Sign Out..."}));

    view.render(layout, rowsFor(false, ""));
    EXPECT_EQ(shownTexts(stack), expectedTexts({"Sign In..."}));
    EXPECT_EQ(stack.arrangedSubviews.count, rowsFor(false, "").size());
    EXPECT_GT(stack.frame.size.height, 0.0);
}

// A row the core disables (an engine's command with no engine) is a button that cannot be pressed;
// enabled again, it can.
TEST(AppKitPopoverView, DrawsARowTheCoreDisablesAsADisabledButton) {
    vornix::platform::macos::AppKitPopoverView view;
    const auto layout = ContentView::layout();
    auto* stack = static_cast<NSStackView*>(view.view());
    auto rows = rowsFor(false, "");
    for (PopoverRow& row : rows) {
        row.isEnabled = row.text != "About";
    }

    view.render(layout, rows);
    ASSERT_NE(buttonLabelled(stack, "About"), nil);
    EXPECT_FALSE(buttonLabelled(stack, "About").enabled);
    EXPECT_TRUE(buttonLabelled(stack, "Quit").enabled);

    view.render(layout, rowsFor(false, ""));
    EXPECT_TRUE(buttonLabelled(stack, "About").enabled);
}

}  // namespace
