#include "platform/macos/AppKitPopoverView.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/macos/Conversions.hpp"

namespace macos = vornix::platform::macos;
using vornix::platform::PopoverRow;

// Where every control of the view sends what the user does; it reports to the core's events.
@interface VXPopoverViewTarget : NSObject
@property(nonatomic) vornix::platform::PopoverViewEvents* events;
- (void)buttonClicked:(id)sender;
- (void)switchToggled:(id)sender;
- (void)button:(NSString*)hoverId hovered:(BOOL)inside;
@end

// A borderless button that draws the background the core chose and reports the pointer entering
// and leaving through a tracking area.
@interface VXRowButton : NSButton
@property(nonatomic, copy) NSString* hoverId;
@property(nonatomic, weak) VXPopoverViewTarget* reporter;
@property(nonatomic, strong) NSColor* backgroundColor;
@property(nonatomic) CGFloat cornerWidth;
@property(nonatomic) CGFloat cornerHeight;
@end

@implementation VXPopoverViewTarget

- (void)buttonClicked:(id)sender {
    if (self.events != nullptr) {
        self.events->buttonClicked(macos::toString(static_cast<VXRowButton*>(sender).hoverId));
    }
}

- (void)switchToggled:(id)sender {
    if (self.events != nullptr) {
        self.events->switchToggled([sender state] == NSControlStateValueOn);
    }
}

- (void)button:(NSString*)hoverId hovered:(BOOL)inside {
    if (self.events != nullptr) {
        self.events->buttonHovered(macos::toString(hoverId), inside);
    }
}

@end

@implementation VXRowButton

- (void)updateTrackingAreas {
    [super updateTrackingAreas];
    for (NSTrackingArea* area in self.trackingAreas) {
        [self removeTrackingArea:area];
    }
    [self addTrackingArea:[[NSTrackingArea alloc]
                              initWithRect:self.bounds
                                   options:NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways | NSTrackingInVisibleRect
                                     owner:self
                                  userInfo:nil]];
}

- (void)mouseEntered:(NSEvent*)event {
    (void)event;
    [self.reporter button:self.hoverId hovered:YES];
}

- (void)mouseExited:(NSEvent*)event {
    (void)event;
    [self.reporter button:self.hoverId hovered:NO];
}

- (void)drawRect:(NSRect)dirtyRect {
    [self.backgroundColor setFill];
    [[NSBezierPath bezierPathWithRoundedRect:self.bounds xRadius:self.cornerWidth yRadius:self.cornerHeight] fill];
    [super drawRect:dirtyRect];
}

@end

namespace {

NSFontWeight weightOf(vornix::platform::FontWeight weight) {
    switch (weight) {
        case vornix::platform::FontWeight::regular:
            return NSFontWeightRegular;
        case vornix::platform::FontWeight::medium:
            return NSFontWeightMedium;
        case vornix::platform::FontWeight::bold:
            return NSFontWeightBold;
    }
    return NSFontWeightRegular;
}

// A font without a size is the body font: the system font at the system's size.
NSFont* fontOf(const vornix::platform::Font& font) {
    return [NSFont systemFontOfSize:font.size.value_or(NSFont.systemFontSize) weight:weightOf(font.weight)];
}

NSColor* colorOf(vornix::platform::Color color) {
    switch (color) {
        case vornix::platform::Color::clear:
            return NSColor.clearColor;
        case vornix::platform::Color::gray:
            return [NSColor.grayColor colorWithAlphaComponent:0.5];
    }
    return NSColor.clearColor;
}

NSEdgeInsets insetsOf(const vornix::platform::EdgeInsets& padding) {
    return NSEdgeInsetsMake(padding.top, padding.leading, padding.bottom, padding.trailing);
}

// The switch: NSSwitch where the system has it, a check box before that.
NSControl* makeSwitch(VXPopoverViewTarget* target) {
    if (@available(macOS 10.15, *)) {
        NSSwitch* control = [[NSSwitch alloc] initWithFrame:NSMakeRect(0, 0, 0, 0)];
        control.target = target;
        control.action = @selector(switchToggled:);
        return control;
    }
    return [NSButton checkboxWithTitle:@"" target:target action:@selector(switchToggled:)];
}

void setSwitchState(NSControl* control, bool isOn) {
    const NSControlStateValue state = isOn ? NSControlStateValueOn : NSControlStateValueOff;
    if (@available(macOS 10.15, *)) {
        if ([control isKindOfClass:[NSSwitch class]]) {
            static_cast<NSSwitch*>(control).state = state;
            return;
        }
    }
    static_cast<NSButton*>(control).state = state;
}

// Each row sits in a stack of its own, whose insets are the row's padding.
NSStackView* makeRow(const PopoverRow& row, VXPopoverViewTarget* target) {
    NSView* content = nil;
    switch (row.kind) {
        case vornix::platform::RowKind::text:
            content = [NSTextField labelWithString:@""];
            break;
        case vornix::platform::RowKind::toggle: {
            NSTextField* label = [NSTextField labelWithString:@""];
            content = [NSStackView stackViewWithViews:@[ label, makeSwitch(target) ]];
            break;
        }
        case vornix::platform::RowKind::divider: {
            NSBox* separator = [[NSBox alloc] initWithFrame:NSMakeRect(0, 0, 0, 1)];
            separator.boxType = NSBoxSeparator;
            content = separator;
            break;
        }
        case vornix::platform::RowKind::button: {
            VXRowButton* button = [VXRowButton buttonWithTitle:@"" target:target action:@selector(buttonClicked:)];
            button.bordered = NO;
            button.reporter = target;
            content = button;
            break;
        }
    }
    return [NSStackView stackViewWithViews:@[ content ]];
}

// Shows `row` in a row view made for a row of its kind.
void showRow(NSStackView* rowView, const PopoverRow& row, const vornix::platform::PopoverLayout& layout) {
    rowView.edgeInsets = insetsOf(row.padding);
    NSView* content = rowView.arrangedSubviews.firstObject;
    NSString* text = macos::toNSString(row.text);
    switch (row.kind) {
        case vornix::platform::RowKind::text: {
            NSTextField* label = static_cast<NSTextField*>(content);
            label.stringValue = text;
            label.font = fontOf(row.font);
            label.accessibilityLabel = text;
            break;
        }
        case vornix::platform::RowKind::toggle: {
            NSArray<NSView*>* parts = static_cast<NSStackView*>(content).arrangedSubviews;
            NSTextField* label = static_cast<NSTextField*>([parts objectAtIndex:0]);
            NSControl* control = static_cast<NSControl*>([parts objectAtIndex:1]);
            label.stringValue = text;
            label.font = fontOf(row.font);
            setSwitchState(control, row.isOn);
            control.accessibilityLabel = text;
            break;
        }
        case vornix::platform::RowKind::divider:
            break;
        case vornix::platform::RowKind::button: {
            VXRowButton* button = static_cast<VXRowButton*>(content);
            button.title = text;
            button.font = fontOf(row.font);
            button.hoverId = macos::toNSString(row.hoverId);
            button.backgroundColor = colorOf(row.background.color);
            button.cornerWidth = row.background.cornerWidth;
            button.cornerHeight = row.background.cornerHeight;
            button.accessibilityLabel = text;
            rowView.edgeInsets = NSEdgeInsetsMake(row.padding.top + layout.buttonLabel.padding.top,
                                                  row.padding.leading + layout.buttonLabel.padding.leading,
                                                  row.padding.bottom + layout.buttonLabel.padding.bottom,
                                                  row.padding.trailing + layout.buttonLabel.padding.trailing);
            button.needsDisplay = YES;
            break;
        }
    }
}

}  // namespace

namespace vornix::platform::macos {

AppKitPopoverView::AppKitPopoverView()
    : stack_([NSStackView stackViewWithViews:@[]]), target_([[VXPopoverViewTarget alloc] init]) {
    stack_.orientation = NSUserInterfaceLayoutOrientationVertical;
    stack_.alignment = NSLayoutAttributeLeading;
    stack_.spacing = 0;
}

void AppKitPopoverView::render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) {
    std::vector<RowKind> kinds(rows.size());
    std::transform(rows.begin(), rows.end(), kinds.begin(), [](const PopoverRow& row) { return row.kind; });
    if (kinds != kinds_) {
        for (NSView* shown in stack_.arrangedSubviews) {
            [stack_ removeArrangedSubview:shown];
            [shown removeFromSuperview];
        }
        for (const PopoverRow& row : rows) {
            [stack_ addArrangedSubview:makeRow(row, target_)];
        }
        kinds_ = std::move(kinds);
    }
    NSArray<NSStackView*>* rowViews = stack_.arrangedSubviews;
    for (std::size_t index = 0; index < rows.size(); ++index) {
        showRow([rowViews objectAtIndex:index], rows[index], layout);
    }
    const double height = std::isfinite(layout.maxHeight) ? layout.maxHeight : stack_.frame.size.height;
    [stack_ setFrameSize:NSMakeSize(layout.width, height)];
}

void AppKitPopoverView::setEvents(PopoverViewEvents* events) { target_.events = events; }

}  // namespace vornix::platform::macos
