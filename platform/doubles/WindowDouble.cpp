#include "platform/doubles/WindowDouble.hpp"

namespace vornix::platform::doubles {

WindowDouble::WindowDouble(Rect frame, StyleMask styleMask) {
    state.frame = frame;
    state.styleMask = styleMask;
}

void WindowDouble::record(const char* name) const { calls_.push_back({name, std::this_thread::get_id()}); }

std::vector<std::string> WindowDouble::callNames() const {
    std::vector<std::string> names;
    for (const Call& call : calls_) {
        names.push_back(call.name);
    }
    return names;
}

std::thread::id WindowDouble::threadOf(const std::string& name) const {
    for (const Call& call : calls_) {
        if (call.name == name) {
            return call.thread;
        }
    }
    return {};
}

Rect WindowDouble::frame() const {
    record("frame");
    return state.frame;
}

void WindowDouble::setFrame(Rect frame, bool display) {
    record("setFrame");
    state.frame = frame;
    state.frameChanges.push_back({frame, display, std::nullopt});
}

void WindowDouble::setFrameAnimate(Rect frame, bool display, bool animate) {
    record("setFrameAnimate");
    state.frame = frame;
    state.frameChanges.push_back({frame, display, animate});
}

void WindowDouble::setFrameTopLeftPoint(Point point) {
    record("setFrameTopLeftPoint");
    state.frame.x = point.x;
    state.frame.y = point.y - state.frame.height;
}

std::shared_ptr<Screen> WindowDouble::screen() const {
    record("screen");
    return state.screen;
}

void WindowDouble::setMinSize(Size size) {
    record("setMinSize");
    state.minSize = size;
}

void WindowDouble::setMaxSize(Size size) {
    record("setMaxSize");
    state.maxSize = size;
}

bool WindowDouble::isVisible() const {
    record("isVisible");
    return state.visible;
}

void WindowDouble::setIsVisible(bool visible) {
    record(visible ? "setIsVisible(true)" : "setIsVisible(false)");
    state.visible = visible;
}

bool WindowDouble::canBecomeKey() const {
    record("canBecomeKey");
    return (state.styleMask & (windowStyle::titled | windowStyle::resizable)) != 0;
}

void WindowDouble::makeKeyAndOrderFront() {
    record("makeKeyAndOrderFront");
    if (canBecomeKey()) {
        state.key = true;
    }
    orderWindow(WindowOrderingMode::above, 0);
}

void WindowDouble::orderWindow(WindowOrderingMode mode, long relativeTo) {
    record("orderWindow");
    state.orderings.push_back({mode, relativeTo});
    state.visible = mode != WindowOrderingMode::out;
}

bool WindowDouble::isZoomed() const {
    record("isZoomed");
    return state.screen && state.frame == state.screen->visibleFrame();
}

void WindowDouble::zoom() {
    record("zoom");
    if (!state.screen) {
        return;
    }
    if (state.frame == state.screen->visibleFrame()) {
        state.frame = userFrame_;
    } else {
        userFrame_ = state.frame;
        state.frame = state.screen->visibleFrame();
    }
}

void WindowDouble::miniaturize() {
    record("miniaturize");
    state.miniaturized = true;
    state.visible = false;
}

void WindowDouble::close() {
    record("close");
    state.closed = true;
    state.visible = false;
}

void WindowDouble::setTitle(std::string title) {
    record("setTitle");
    state.title = std::move(title);
}

std::shared_ptr<Event> WindowDouble::currentEvent() const {
    record("currentEvent");
    return state.currentEvent;
}

void WindowDouble::performWindowDrag(std::shared_ptr<Event> event) {
    record("performWindowDrag");
    state.drags.push_back(std::move(event));
}

std::optional<Rect> WindowDouble::contentViewFrame() const {
    record("contentViewFrame");
    return state.contentViewFrame;
}

Rect WindowDouble::contentLayoutRect() const {
    record("contentLayoutRect");
    return state.contentLayoutRect;
}

StyleMask WindowDouble::styleMask() const {
    record("styleMask");
    return state.styleMask;
}

void WindowDouble::setStyleMask(StyleMask mask) {
    record("setStyleMask");
    state.styleMask = mask;
}

void WindowDouble::setTitlebarAppearsTransparent(bool transparent) {
    record("setTitlebarAppearsTransparent");
    state.titlebarAppearsTransparent = transparent;
}

void WindowDouble::setTitleVisibility(TitleVisibility visibility) {
    record("setTitleVisibility");
    state.titleVisibility = visibility;
}

void WindowDouble::setOpaque(bool opaque) {
    record("setOpaque");
    state.opaque = opaque;
}

void WindowDouble::setMovable(bool movable) {
    record("setMovable");
    state.movable = movable;
}

}  // namespace vornix::platform::doubles
