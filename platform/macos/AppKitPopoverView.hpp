#pragma once

#import <AppKit/AppKit.h>

#include <vector>

#include "platform/PopoverView.hpp"

@class VXPopoverViewTarget;

namespace vornix::platform::macos {

// A popover's content on macOS: AppKit views for the core's rows, stacked top to bottom (labels,
// the switch, separators, borderless buttons that report the pointer entering and leaving).
// Rows of the same kinds as those shown are updated in place, so that a change of hover does not
// replace the button under the pointer.
class AppKitPopoverView final : public PopoverView {
public:
    AppKitPopoverView();

    void render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) override;
    void setEvents(PopoverViewEvents* events) override;

    NSView* view() const { return stack_; }

private:
    NSStackView* stack_;
    VXPopoverViewTarget* target_;
    std::vector<RowKind> kinds_;
};

}  // namespace vornix::platform::macos
