#include "platform/macos/AppKitPopoverView.hpp"

#include <algorithm>
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

// A borderless button that draws the background the core chose behind its label, which sits inside
// it (its stack's insets are the label's padding), and reports the pointer entering and leaving
// through its tracking area.
@interface VXRowButton : NSButton
@property(nonatomic, copy) NSString* hoverId;
@property(nonatomic, weak) VXPopoverViewTarget* reporter;
@property(nonatomic, strong) NSColor* backgroundColor;
@property(nonatomic) CGFloat cornerWidth;
@property(nonatomic) CGFloat cornerHeight;
@property(nonatomic, strong) NSStackView* labelStack;
@property(nonatomic, strong) NSTextField* label;
@property(nonatomic, strong) NSTrackingArea* trackingArea;
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
    if (self.trackingArea != nil) {
        [self removeTrackingArea:self.trackingArea];
    }
    self.trackingArea = [[NSTrackingArea alloc]
        initWithRect:self.bounds
             options:NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways | NSTrackingInVisibleRect
               owner:self
            userInfo:nil];
    [self addTrackingArea:self.trackingArea];
}

// The button is as large as its label with the padding around it.
- (NSSize)intrinsicContentSize {
    return NSMakeSize(NSViewNoIntrinsicMetric, NSViewNoIntrinsicMetric);
}

// The label is part of the button: a click on it is a click on the button.
- (NSView*)hitTest:(NSPoint)point {
    return [super hitTest:point] != nil ? self : nil;
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
            return NSColor.systemGrayColor;
    }
    return NSColor.clearColor;
}

NSEdgeInsets insetsOf(const vornix::platform::EdgeInsets& padding) {
    return NSEdgeInsetsMake(padding.top, padding.leading, padding.bottom, padding.trailing);
}

// A vertical stack and a label align only across, so the top of "top leading" has nothing to say.
NSLayoutAttribute attributeOf(vornix::platform::Alignment alignment) {
    switch (alignment) {
        case vornix::platform::Alignment::leading:
        case vornix::platform::Alignment::topLeading:
            return NSLayoutAttributeLeading;
    }
    return NSLayoutAttributeLeading;
}

// The natural alignment is the leading edge of the text's writing direction.
NSTextAlignment textAlignmentOf(vornix::platform::Alignment alignment) {
    switch (alignment) {
        case vornix::platform::Alignment::leading:
        case vornix::platform::Alignment::topLeading:
            return NSTextAlignmentNatural;
    }
    return NSTextAlignmentNatural;
}

// The width left for a label in a row of the popover: the popover's, less the padding around it.
CGFloat widthInside(double width, const vornix::platform::EdgeInsets& padding) {
    return width - padding.leading - padding.trailing;
}

// A stack whose one view fills it, less the stack's insets: a row's content, less the row's
// padding, and a button's label, less the label's padding.
NSStackView* fillingStack(NSView* content) {
    NSStackView* stack = [NSStackView stackViewWithViews:@[ content ]];
    stack.distribution = NSStackViewDistributionFill;
    return stack;
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
            content = [NSTextField wrappingLabelWithString:@""];
            break;
        case vornix::platform::RowKind::toggle: {
            NSTextField* label = [NSTextField labelWithString:@""];
            content = [NSStackView stackViewWithViews:@[ makeSwitch(target), label ]];
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
            button.label = [NSTextField wrappingLabelWithString:@""];
            button.labelStack = fillingStack(button.label);
            button.labelStack.translatesAutoresizingMaskIntoConstraints = NO;
            [button addSubview:button.labelStack];
            [NSLayoutConstraint activateConstraints:@[
                [button.labelStack.leadingAnchor constraintEqualToAnchor:button.leadingAnchor],
                [button.labelStack.trailingAnchor constraintEqualToAnchor:button.trailingAnchor],
                [button.labelStack.topAnchor constraintEqualToAnchor:button.topAnchor],
                [button.labelStack.bottomAnchor constraintEqualToAnchor:button.bottomAnchor],
            ]];
            content = button;
            break;
        }
    }
    return fillingStack(content);
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
            label.preferredMaxLayoutWidth = widthInside(layout.width, row.padding);
            label.accessibilityLabel = text;
            break;
        }
        case vornix::platform::RowKind::toggle: {
            NSArray<NSView*>* parts = static_cast<NSStackView*>(content).arrangedSubviews;
            NSControl* control = static_cast<NSControl*>([parts objectAtIndex:0]);
            NSTextField* label = static_cast<NSTextField*>([parts objectAtIndex:1]);
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
            button.label.stringValue = text;
            button.label.font = fontOf(row.font);
            button.label.alignment = textAlignmentOf(layout.buttonLabel.alignment);
            button.label.preferredMaxLayoutWidth =
                std::min(widthInside(widthInside(layout.width, row.padding), layout.buttonLabel.padding),
                         layout.buttonLabel.maxWidth);
            button.labelStack.edgeInsets = insetsOf(layout.buttonLabel.padding);
            button.hoverId = macos::toNSString(row.hoverId);
            button.backgroundColor = colorOf(row.background.color);
            button.cornerWidth = row.background.cornerWidth;
            button.cornerHeight = row.background.cornerHeight;
            button.enabled = row.isEnabled;
            button.label.enabled = row.isEnabled;
            button.accessibilityLabel = text;
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
    stack_.spacing = 0;
}

void AppKitPopoverView::render(const PopoverLayout& layout, const std::vector<PopoverRow>& rows) {
    stack_.alignment = attributeOf(layout.stackAlignment);
    std::vector<RowKind> kinds(rows.size());
    std::transform(rows.begin(), rows.end(), kinds.begin(), [](const PopoverRow& row) { return row.kind; });
    if (kinds != kinds_) {
        // A copy: the stack's own list shrinks with each removal, and AppKit does not promise that
        // the array it hands out is not that list.
        NSArray<NSView*>* shownRows = [stack_.arrangedSubviews copy];
        for (NSView* shown in shownRows) {
            [stack_ removeArrangedSubview:shown];
            [shown removeFromSuperview];
        }
        for (const PopoverRow& row : rows) {
            NSStackView* rowView = makeRow(row, target_);
            [stack_ addArrangedSubview:rowView];
            [rowView.widthAnchor constraintEqualToAnchor:stack_.widthAnchor].active = YES;
        }
        kinds_ = std::move(kinds);
    }
    NSArray<NSStackView*>* rowViews = stack_.arrangedSubviews;
    for (std::size_t index = 0; index < rows.size(); ++index) {
        showRow([rowViews objectAtIndex:index], rows[index], layout);
    }
    [stack_ setFrameSize:NSMakeSize(layout.width, std::min(stack_.fittingSize.height, layout.maxHeight))];
}

void AppKitPopoverView::setEvents(PopoverViewEvents* events) { target_.events = events; }

}  // namespace vornix::platform::macos
