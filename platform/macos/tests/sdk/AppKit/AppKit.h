// Declarations for the syntax check of the macOS backend off a Mac: the part of AppKit that the
// backend and the engine's and updater's public headers use, each as Apple documents it.
#pragma once

#import <Foundation/Foundation.h>
#include <CoreGraphics/CoreGraphics.h>

#ifdef __cplusplus
#define APPKIT_EXTERN extern "C"
#else
#define APPKIT_EXTERN extern
#endif

NS_ASSUME_NONNULL_BEGIN

typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;

static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat w, CGFloat h) { return CGRectMake(x, y, w, h); }
static inline NSSize NSMakeSize(CGFloat w, CGFloat h) {
    NSSize size;
    size.width = w;
    size.height = h;
    return size;
}
static inline NSPoint NSMakePoint(CGFloat x, CGFloat y) {
    NSPoint point;
    point.x = x;
    point.y = y;
    return point;
}

typedef struct NSEdgeInsets {
    CGFloat top;
    CGFloat left;
    CGFloat bottom;
    CGFloat right;
} NSEdgeInsets;

static inline NSEdgeInsets NSEdgeInsetsMake(CGFloat top, CGFloat left, CGFloat bottom, CGFloat right) {
    NSEdgeInsets insets;
    insets.top = top;
    insets.left = left;
    insets.bottom = bottom;
    insets.right = right;
    return insets;
}

typedef NS_ENUM(NSUInteger, NSRectEdge) {
    NSRectEdgeMinX = 0,
    NSRectEdgeMinY = 1,
    NSRectEdgeMaxX = 2,
    NSRectEdgeMaxY = 3,
};

@class NSWindow, NSScreen, NSView, NSViewController, NSMenu, NSMenuItem, NSImage, NSColor, NSEvent, NSApplication;

@interface NSObject (NSNibAwaking)
- (void)awakeFromNib NS_REQUIRES_SUPER;
@end

@interface NSEvent : NSObject <NSCopying>
@end

typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskAny = NSUIntegerMax,
};

@interface NSResponder : NSObject <NSCoding>
- (void)mouseEntered:(NSEvent*)event;
- (void)mouseExited:(NSEvent*)event;
@end

@interface NSColor : NSObject <NSCopying>
@property(class, strong, readonly) NSColor* clearColor;
@property(class, strong, readonly) NSColor* systemGrayColor API_AVAILABLE(macos(10.10));
- (void)setFill;
@end

typedef CGFloat NSFontWeight;
APPKIT_EXTERN const NSFontWeight NSFontWeightRegular API_AVAILABLE(macos(10.11));
APPKIT_EXTERN const NSFontWeight NSFontWeightMedium API_AVAILABLE(macos(10.11));
APPKIT_EXTERN const NSFontWeight NSFontWeightBold API_AVAILABLE(macos(10.11));

@interface NSFont : NSObject <NSCopying>
+ (NSFont*)systemFontOfSize:(CGFloat)fontSize weight:(NSFontWeight)weight API_AVAILABLE(macos(10.11));
@property(class, readonly) CGFloat systemFontSize;
@end

typedef NSString* NSImageName;

@interface NSImage : NSObject <NSCopying>
+ (nullable NSImage*)imageNamed:(NSImageName)name;
// "template" is a C++ keyword, so Objective-C++ sees the accessors of the property.
#ifdef __cplusplus
- (BOOL)isTemplate;
- (void)setTemplate:(BOOL)isTemplate;
#else
@property(getter=isTemplate) BOOL template;
#endif
@end

@interface NSBezierPath : NSObject <NSCopying>
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)xRadius yRadius:(CGFloat)yRadius;
- (void)fill;
@end

typedef NS_OPTIONS(NSUInteger, NSTrackingAreaOptions) {
    NSTrackingMouseEnteredAndExited = 0x01,
    NSTrackingActiveAlways = 0x80,
    NSTrackingInVisibleRect = 0x200,
};

@interface NSTrackingArea : NSObject <NSCopying>
- (instancetype)initWithRect:(NSRect)rect
                     options:(NSTrackingAreaOptions)options
                       owner:(nullable id)owner
                    userInfo:(nullable NSDictionary<id, id>*)userInfo;
@end

@class NSLayoutConstraint;

API_AVAILABLE(macos(10.11))
@interface NSLayoutAnchor<AnchorType> : NSObject
- (NSLayoutConstraint*)constraintEqualToAnchor:(NSLayoutAnchor<AnchorType>*)anchor;
@end

@class NSLayoutXAxisAnchor, NSLayoutYAxisAnchor, NSLayoutDimension;

API_AVAILABLE(macos(10.11))
@interface NSLayoutXAxisAnchor : NSLayoutAnchor<NSLayoutXAxisAnchor*>
@end

API_AVAILABLE(macos(10.11))
@interface NSLayoutYAxisAnchor : NSLayoutAnchor<NSLayoutYAxisAnchor*>
@end

API_AVAILABLE(macos(10.11))
@interface NSLayoutDimension : NSLayoutAnchor<NSLayoutDimension*>
@end

@interface NSLayoutConstraint : NSObject
+ (void)activateConstraints:(NSArray<NSLayoutConstraint*>*)constraints API_AVAILABLE(macos(10.10));
@property(getter=isActive) BOOL active API_AVAILABLE(macos(10.10));
@end

APPKIT_EXTERN const CGFloat NSViewNoIntrinsicMetric API_AVAILABLE(macos(10.11));

@interface NSView : NSResponder
@property(getter=isHidden) BOOL hidden;
- (instancetype)initWithFrame:(NSRect)frameRect NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
@property NSRect frame;
@property NSRect bounds;
@property(nullable, readonly, assign) NSWindow* window;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (void)setFrameSize:(NSSize)newSize;
- (void)drawRect:(NSRect)dirtyRect;
@property BOOL needsDisplay;
- (nullable NSView*)hitTest:(NSPoint)point;
@property BOOL translatesAutoresizingMaskIntoConstraints API_AVAILABLE(macos(10.7));
@property(readonly) NSSize intrinsicContentSize API_AVAILABLE(macos(10.7));
@property(readonly) NSSize fittingSize API_AVAILABLE(macos(10.7));
@property(readonly, strong) NSLayoutXAxisAnchor* leadingAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutXAxisAnchor* trailingAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutYAxisAnchor* topAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutYAxisAnchor* bottomAnchor API_AVAILABLE(macos(10.11));
@property(readonly, strong) NSLayoutDimension* widthAnchor API_AVAILABLE(macos(10.11));
- (void)updateTrackingAreas NS_REQUIRES_SUPER;
- (void)addTrackingArea:(NSTrackingArea*)trackingArea;
- (void)removeTrackingArea:(NSTrackingArea*)trackingArea;
@property(readonly, copy) NSArray<NSTrackingArea*>* trackingAreas;
// From the NSAccessibility protocol, which NSView adopts.
@property(nullable, copy) NSString* accessibilityLabel API_AVAILABLE(macos(10.10));
@end

@interface NSViewController : NSResponder
- (instancetype)initWithNibName:(nullable NSString*)nibNameOrNil
                         bundle:(nullable NSBundle*)nibBundleOrNil NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
@property(strong) NSView* view;
@end

typedef NSInteger NSControlStateValue;
static const NSControlStateValue NSControlStateValueOff API_AVAILABLE(macos(10.13)) = 0;
static const NSControlStateValue NSControlStateValueOn API_AVAILABLE(macos(10.13)) = 1;

// Only the value that means "the leading edge of the text's writing direction".
typedef NS_ENUM(NSInteger, NSTextAlignment) {
    NSTextAlignmentNatural = 4,
};

@interface NSControl : NSView
@property(nullable, weak) id target;
@property(nullable) SEL action;
@property(nullable, strong) NSFont* font;
@property(copy) NSString* stringValue;
@property NSTextAlignment alignment;
@property(getter=isEnabled) BOOL enabled;
@end

@interface NSTextField : NSControl
+ (instancetype)labelWithString:(NSString*)stringValue API_AVAILABLE(macos(10.12));
+ (instancetype)wrappingLabelWithString:(NSString*)stringValue API_AVAILABLE(macos(10.12));
@property CGFloat preferredMaxLayoutWidth API_AVAILABLE(macos(10.8));
@end

@interface NSButton : NSControl
+ (instancetype)buttonWithTitle:(NSString*)title target:(nullable id)target action:(nullable SEL)action
    API_AVAILABLE(macos(10.12));
+ (instancetype)checkboxWithTitle:(NSString*)title target:(nullable id)target action:(nullable SEL)action
    API_AVAILABLE(macos(10.12));
@property(copy) NSString* title;
@property(nullable, strong) NSImage* image;
@property(getter=isBordered) BOOL bordered;
@property NSControlStateValue state;
- (void)performClick:(nullable id)sender;
@end

API_AVAILABLE(macos(10.15))
@interface NSSwitch : NSControl
@property NSControlStateValue state;
@end

typedef NS_ENUM(NSUInteger, NSBoxType) {
    NSBoxPrimary = 0,
    NSBoxSeparator = 2,
    NSBoxCustom = 4,
};

@interface NSBox : NSView
@property NSBoxType boxType;
@end

typedef NS_ENUM(NSInteger, NSUserInterfaceLayoutOrientation) {
    NSUserInterfaceLayoutOrientationHorizontal = 0,
    NSUserInterfaceLayoutOrientationVertical = 1,
};

typedef NS_ENUM(NSInteger, NSLayoutAttribute) {
    NSLayoutAttributeLeading = 5,
    NSLayoutAttributeTop = 3,
    NSLayoutAttributeCenterY = 10,
};

// Only the distribution in which the arranged views fill the stack along its orientation.
typedef NS_ENUM(NSInteger, NSStackViewDistribution) {
    NSStackViewDistributionFill = 0,
} API_AVAILABLE(macos(10.11));

@interface NSStackView : NSView
+ (instancetype)stackViewWithViews:(NSArray<NSView*>*)views API_AVAILABLE(macos(10.11));
@property NSUserInterfaceLayoutOrientation orientation;
@property NSLayoutAttribute alignment;
@property NSStackViewDistribution distribution API_AVAILABLE(macos(10.11));
@property NSEdgeInsets edgeInsets;
@property CGFloat spacing;
@property(readonly, copy) NSArray<__kindof NSView*>* arrangedSubviews API_AVAILABLE(macos(10.11));
- (void)addArrangedSubview:(NSView*)view API_AVAILABLE(macos(10.11));
- (void)removeArrangedSubview:(NSView*)view API_AVAILABLE(macos(10.11));
@end

@interface NSScreen : NSObject
@property(readonly) NSRect frame;
@property(readonly) NSRect visibleFrame;
@end

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskBorderless = 0,
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskClosable = 1 << 1,
    NSWindowStyleMaskMiniaturizable = 1 << 2,
    NSWindowStyleMaskResizable = 1 << 3,
    NSWindowStyleMaskFullSizeContentView API_AVAILABLE(macos(10.10)) = 1 << 15,
};

typedef NS_ENUM(NSUInteger, NSBackingStoreType) {
    NSBackingStoreBuffered = 2,
};

typedef NS_ENUM(NSInteger, NSWindowOrderingMode) {
    NSWindowAbove = 1,
    NSWindowBelow = -1,
    NSWindowOut = 0,
};

typedef NS_ENUM(NSInteger, NSWindowTitleVisibility) {
    NSWindowTitleVisible = 0,
    NSWindowTitleHidden = 1,
};

typedef NS_ENUM(NSUInteger, NSWindowButton) {
    NSWindowCloseButton = 0,
    NSWindowMiniaturizeButton = 1,
    NSWindowZoomButton = 2,
};

@interface NSWindow : NSResponder
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_UNAVAILABLE;
@property(readonly) NSRect frame;
- (void)setFrame:(NSRect)frameRect display:(BOOL)flag;
- (void)setFrame:(NSRect)frameRect display:(BOOL)displayFlag animate:(BOOL)animateFlag;
- (void)setFrameTopLeftPoint:(NSPoint)point;
@property(nullable, readonly, strong) NSScreen* screen;
@property NSSize minSize;
@property NSSize maxSize;
@property(getter=isVisible, readonly) BOOL visible;
- (void)setIsVisible:(BOOL)flag;
@property(readonly) BOOL canBecomeKeyWindow;
- (void)makeKeyAndOrderFront:(nullable id)sender;
- (void)orderFront:(nullable id)sender;
- (void)orderOut:(nullable id)sender;
- (void)makeKeyWindow;
- (void)orderWindow:(NSWindowOrderingMode)place relativeTo:(NSInteger)otherWin;
@property(getter=isZoomed, readonly) BOOL zoomed;
- (void)zoom:(nullable id)sender;
- (void)miniaturize:(nullable id)sender;
- (void)close;
- (void)center;
@property(copy) NSString* title;
@property(readonly, nullable, strong) NSEvent* currentEvent;
- (void)performWindowDragWithEvent:(NSEvent*)event API_AVAILABLE(macos(10.11));
@property(nullable, strong) __kindof NSView* contentView;
@property(nullable, strong) NSViewController* contentViewController API_AVAILABLE(macos(10.10));
@property(readonly) NSRect contentLayoutRect API_AVAILABLE(macos(10.10));
@property NSWindowStyleMask styleMask;
@property BOOL titlebarAppearsTransparent API_AVAILABLE(macos(10.10));
@property NSWindowTitleVisibility titleVisibility API_AVAILABLE(macos(10.10));
@property(getter=isOpaque) BOOL opaque;
@property(getter=isMovable) BOOL movable;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
- (nullable NSButton*)standardWindowButton:(NSWindowButton)b;
@end

@interface NSMenuItem : NSObject <NSCopying>
@end

@interface NSMenu : NSObject <NSCopying>
@end

@interface NSStatusBarButton : NSButton
@end

@protocol NSApplicationDelegate <NSObject>
@optional
- (void)applicationWillFinishLaunching:(NSNotification*)notification;
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
- (void)applicationWillTerminate:(NSNotification*)notification;
- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)sender;
@end

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory,
    NSApplicationActivationPolicyProhibited
};

@interface NSApplication : NSResponder
@property(class, readonly, strong) __kindof NSApplication* sharedApplication;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy API_AVAILABLE(macos(10.6));
- (void)finishLaunching;
- (nullable NSEvent*)nextEventMatchingMask:(NSEventMask)mask
                                 untilDate:(nullable NSDate*)expiration
                                    inMode:(NSRunLoopMode)mode
                                   dequeue:(BOOL)deqFlag;
- (void)sendEvent:(NSEvent*)event;
@property(nullable, weak) id<NSApplicationDelegate> delegate;
@property(readonly, copy) NSArray<NSWindow*>* windows;
- (void)terminate:(nullable id)sender;
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps
    API_DEPRECATED("This method will be deprecated in a future release. Use NSApp.activate instead.",
                   macos(10.0, 14.0));
- (void)activate API_AVAILABLE(macos(14.0));
@end

APPKIT_EXTERN __kindof NSApplication* _Null_unspecified NSApp;
APPKIT_EXTERN NSNotificationName NSApplicationWillFinishLaunchingNotification;

APPKIT_EXTERN int NSApplicationMain(int argc, const char* _Nonnull argv[_Nonnull]);

@interface NSStatusItem : NSObject
@property(readonly, nullable, strong) NSStatusBarButton* button API_AVAILABLE(macos(10.10));
@end

@interface NSStatusBar : NSObject
@property(class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

typedef NS_ENUM(NSInteger, NSPopoverBehavior) {
    NSPopoverBehaviorApplicationDefined = 0,
    NSPopoverBehaviorTransient = 1,
    NSPopoverBehaviorSemitransient = 2,
};

@interface NSPopover : NSResponder
- (instancetype)init NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
@property NSSize contentSize;
@property NSPopoverBehavior behavior;
@property(nullable, strong) NSViewController* contentViewController;
@property(readonly, getter=isShown) BOOL shown;
- (void)showRelativeToRect:(NSRect)positioningRect ofView:(NSView*)positioningView preferredEdge:(NSRectEdge)preferredEdge;
- (void)performClose:(nullable id)sender;
@end

typedef NSInteger NSModalResponse;

typedef NS_ENUM(NSUInteger, NSAlertStyle) {
    NSAlertStyleWarning = 0,
    NSAlertStyleInformational = 1,
    NSAlertStyleCritical = 2,
};

@interface NSAlert : NSObject
@property(copy) NSString* messageText;
@property(copy) NSString* informativeText;
@property NSAlertStyle alertStyle;
- (NSButton*)addButtonWithTitle:(NSString*)title;
- (NSModalResponse)runModal;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
- (BOOL)openURL:(NSURL*)url;
- (nullable NSURL*)URLForApplicationToOpenURL:(NSURL*)url API_AVAILABLE(macos(10.6));
@end

NS_ASSUME_NONNULL_END
