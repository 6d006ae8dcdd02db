#pragma once

#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/Window.hpp"

namespace vornix::platform::doubles {

// An in-memory window that behaves as AppKit documents it where the window library relies on it:
// makeKeyAndOrderFront orders through the (virtual) orderWindow, so a derived window sees it;
// only titled or resizable windows become key by default; the window counts as zoomed while its
// frame is its screen's visible frame. Every call is logged with the thread that made it.
class WindowDouble : public Window {
public:
    struct Call {
        std::string name;
        std::thread::id thread;
    };
    struct FrameChange {
        Rect frame;
        bool display;
        std::optional<bool> animate;  // set only by setFrameAnimate
    };
    struct Ordering {
        WindowOrderingMode mode;
        long relativeTo;
    };

    // What the window is and shows; tests set it up and read it back directly.
    struct State {
        Rect frame;
        StyleMask styleMask = windowStyle::titled;
        std::shared_ptr<Screen> screen;
        Size minSize;
        Size maxSize;
        bool visible = false;
        bool key = false;
        bool miniaturized = false;
        bool closed = false;
        std::string title;
        bool titlebarAppearsTransparent = false;
        TitleVisibility titleVisibility = TitleVisibility::visible;
        bool opaque = true;
        bool movable = true;
        std::optional<Rect> contentViewFrame;
        Rect contentLayoutRect;
        std::shared_ptr<Event> currentEvent;
        std::vector<std::shared_ptr<Event>> drags;
        std::vector<FrameChange> frameChanges;
        std::vector<Ordering> orderings;
    };

    explicit WindowDouble(Rect frame = {}, StyleMask styleMask = windowStyle::titled);

    Rect frame() const override;
    void setFrame(Rect frame, bool display) override;
    void setFrameAnimate(Rect frame, bool display, bool animate) override;
    void setFrameTopLeftPoint(Point point) override;
    std::shared_ptr<Screen> screen() const override;
    void setMinSize(Size size) override;
    void setMaxSize(Size size) override;
    bool isVisible() const override;
    void setIsVisible(bool visible) override;
    bool canBecomeKey() const override;
    void makeKeyAndOrderFront() override;
    void orderWindow(WindowOrderingMode mode, long relativeTo) override;
    bool isZoomed() const override;
    void zoom() override;
    void miniaturize() override;
    void close() override;
    void setTitle(std::string title) override;
    std::shared_ptr<Event> currentEvent() const override;
    void performWindowDrag(std::shared_ptr<Event> event) override;
    std::optional<Rect> contentViewFrame() const override;
    Rect contentLayoutRect() const override;
    StyleMask styleMask() const override;
    void setStyleMask(StyleMask mask) override;
    void setTitlebarAppearsTransparent(bool transparent) override;
    void setTitleVisibility(TitleVisibility visibility) override;
    void setOpaque(bool opaque) override;
    void setMovable(bool movable) override;

    // The names of the calls made so far, in order.
    std::vector<std::string> callNames() const;
    // The thread of the first call of that name; a default id when there was none.
    std::thread::id threadOf(const std::string& name) const;

    State state;

private:
    void record(const char* name) const;

    mutable std::vector<Call> calls_;
    Rect userFrame_;
};

}  // namespace vornix::platform::doubles
