#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"

#include <string>
#include <string_view>
#include <utility>

#include "base/FatalError.hpp"
#include "platform/ApplicationWindows.hpp"
#include "platform/MainQueue.hpp"

namespace vornix::bitsdojo_window {

constinit std::shared_ptr<platform::Window> _appWindow;
constinit bool _windowCanBeShown = false;
constinit bool _insideDoWhenWindowReady = false;

namespace {

using platform::Rect;
using platform::Window;
using WindowRef = std::shared_ptr<Window>;

// The window behind a handle, shared so that queued work keeps it alive.
WindowRef windowOf(BDWWindow handle, std::string_view function) {
    if (handle == nullptr) {
        base::fatalError(std::string(function) + " was given no window");
    }
    return static_cast<Window*>(handle)->shared_from_this();
}

template <class Record>
Record& recordOf(Record* record, std::string_view function) {
    if (record == nullptr) {
        base::fatalError(std::string(function) + " was given no record to work with");
    }
    return *record;
}

// A window on no screen works with zero rectangles.
Rect visibleFrameOf(const Window& window) {
    auto screen = window.screen();
    return screen ? screen->visibleFrame() : Rect{};
}

Rect screenFrameOf(const Window& window) {
    auto screen = window.screen();
    return screen ? screen->frame() : Rect{};
}

template <class Work>
void alwaysQueuedToMain(WindowRef window, Work work) {
    platform::MainQueue::current().async([window = std::move(window), work = std::move(work)] { work(*window); });
}

template <class Work>
void immediateOnMainElseQueued(WindowRef window, Work work) {
    if (platform::MainQueue::current().isMainThread()) {
        work(*window);
    } else {
        alwaysQueuedToMain(std::move(window), std::move(work));
    }
}

// Whether `text` is well-formed UTF-8: the engine side always sends it so, anything else is a defect.
bool isUtf8(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        std::size_t length;
        char32_t codePoint;
        if (lead < 0x80) {
            length = 1;
            codePoint = lead;
        } else if ((lead & 0xE0) == 0xC0) {
            length = 2;
            codePoint = lead & 0x1F;
        } else if ((lead & 0xF0) == 0xE0) {
            length = 3;
            codePoint = lead & 0x0F;
        } else if ((lead & 0xF8) == 0xF0) {
            length = 4;
            codePoint = lead & 0x07;
        } else {
            return false;
        }
        if (i + length > text.size()) {
            return false;
        }
        for (std::size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xC0) != 0x80) {
                return false;
            }
            codePoint = (codePoint << 6) | (next & 0x3F);
        }
        static constexpr char32_t shortest[] = {0, 0, 0x80, 0x800, 0x10000};
        if (codePoint < shortest[length] || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
            return false;
        }
        i += length;
    }
    return true;
}

}  // namespace

BDWWindow handleOf(platform::Window* window) { return window; }

BDWWindow getAppWindow() {
    if (!_appWindow) {
        auto windows = platform::ApplicationWindows::current().windows();
        if (windows.empty()) {
            base::fatalError("getAppWindow: the application has no window");
        }
        _appWindow = windows[0];
    }
    return handleOf(_appWindow.get());
}

void setWindowCanBeShown(bool value) { _windowCanBeShown = value; }

void setInsideDoWhenWindowReady(bool value) { _insideDoWhenWindowReady = value; }

void showWindow(BDWWindow window) {
    alwaysQueuedToMain(windowOf(window, "showWindow"), [](Window& w) { w.makeKeyAndOrderFront(); });
}

void hideWindow(BDWWindow window) {
    alwaysQueuedToMain(windowOf(window, "hideWindow"), [](Window& w) { w.setIsVisible(false); });
}

// Lets the system drag the window with the mouse from the mouse-down being handled.
void moveWindow(BDWWindow window) {
    alwaysQueuedToMain(windowOf(window, "moveWindow"), [](Window& w) { w.performWindowDrag(w.currentEvent()); });
}

// Keeps the frame's AppKit origin, its bottom-left corner: the window keeps its bottom edge and
// grows or shrinks at the top. The origin is the one the window has at the call.
void setSize(BDWWindow window, int width, int height) {
    auto target = windowOf(window, "setSize");
    Rect frame = target->frame();
    frame.width = width;
    frame.height = height;
    alwaysQueuedToMain(std::move(target), [frame](Window& w) { w.setFrame(frame, true); });
}

void setMinSize(BDWWindow window, int width, int height) {
    const platform::Size size{static_cast<double>(width), static_cast<double>(height)};
    alwaysQueuedToMain(windowOf(window, "setMinSize"), [size](Window& w) { w.setMinSize(size); });
}

void setMaxSize(BDWWindow window, int width, int height) {
    const platform::Size size{static_cast<double>(width), static_cast<double>(height)};
    alwaysQueuedToMain(windowOf(window, "setMaxSize"), [size](Window& w) { w.setMaxSize(size); });
}

// The working area is flipped against the screen's height; the whole screen is reported as
// AppKit gives it, unflipped, which is what the engine side expects.
bool getScreenInfoForWindow(BDWWindow window, _BDWScreenInfo* info) {
    auto target = windowOf(window, "getScreenInfoForWindow");
    auto& out = recordOf(info, "getScreenInfoForWindow");
    auto& working = recordOf(out.workingRect, "getScreenInfoForWindow");
    auto& full = recordOf(out.fullRect, "getScreenInfoForWindow");
    const Rect visible = visibleFrameOf(*target);
    const Rect screen = screenFrameOf(*target);
    working.left = visible.x;
    working.top = screen.height - visible.height - visible.y;
    working.right = visible.x + visible.width;
    working.bottom = working.top + visible.height;
    full.left = screen.x;
    full.top = screen.y;
    full.right = screen.x + screen.width;
    full.bottom = screen.y + screen.height;
    return true;
}

// y is flipped against the top of the visible frame; x is taken as it stands, not shifted by the
// visible frame's x origin.
bool setPositionForWindow(BDWWindow window, _BDWOffset* offset) {
    auto target = windowOf(window, "setPositionForWindow");
    const _BDWOffset position = recordOf(offset, "setPositionForWindow");
    immediateOnMainElseQueued(std::move(target), [position](Window& w) {
        const Rect visible = visibleFrameOf(w);
        w.setFrameTopLeftPoint({position.x, (visible.y + visible.height) - position.y});
    });
    return true;
}

// Unlike reading a rectangle, setting one is measured against the whole screen frame, x included.
bool setRectForWindow(BDWWindow window, _BDWRect* rect) {
    auto target = windowOf(window, "setRectForWindow");
    const _BDWRect wanted = recordOf(rect, "setRectForWindow");
    immediateOnMainElseQueued(std::move(target), [wanted](Window& w) {
        const Rect screen = screenFrameOf(w);
        w.setFrame({screen.x + wanted.left, (screen.y + screen.height) - wanted.bottom, wanted.right - wanted.left,
                    wanted.bottom - wanted.top},
                   true);
    });
    return true;
}

// Flipped against the top of the visible frame, x absolute: the same reference as setting a
// position, not the one of setting a rectangle.
bool getRectForWindow(BDWWindow window, _BDWRect* rect) {
    auto target = windowOf(window, "getRectForWindow");
    auto& out = recordOf(rect, "getRectForWindow");
    const Rect frame = target->frame();
    const Rect visible = visibleFrameOf(*target);
    out.left = frame.x;
    out.top = (visible.y + visible.height) - (frame.y + frame.height);
    out.right = out.left + frame.width;
    out.bottom = out.top + frame.height;
    return true;
}

bool isWindowVisible(BDWWindow window) { return windowOf(window, "isWindowVisible")->isVisible(); }

bool isWindowMaximized(BDWWindow window) { return windowOf(window, "isWindowMaximized")->isZoomed(); }

void maximizeOrRestoreWindow(BDWWindow window) {
    alwaysQueuedToMain(windowOf(window, "maximizeOrRestoreWindow"), [](Window& w) { w.zoom(); });
}

void maximizeWindow(BDWWindow window) {
    alwaysQueuedToMain(windowOf(window, "maximizeWindow"),
                       [](Window& w) { w.setFrameAnimate(visibleFrameOf(w), true, true); });
}

void minimizeWindow(BDWWindow window) {
    alwaysQueuedToMain(windowOf(window, "minimizeWindow"), [](Window& w) { w.miniaturize(); });
}

void closeWindow(BDWWindow window) {
    alwaysQueuedToMain(windowOf(window, "closeWindow"), [](Window& w) { w.close(); });
}

// The text is copied before returning: the engine side frees it as soon as the call is over.
void setWindowTitle(BDWWindow window, const char* title) {
    auto target = windowOf(window, "setWindowTitle");
    if (title == nullptr) {
        base::fatalError("setWindowTitle was given no title");
    }
    std::string text(title);
    if (!isUtf8(text)) {
        base::fatalError("setWindowTitle was given a title that is not UTF-8");
    }
    alwaysQueuedToMain(std::move(target), [text = std::move(text)](Window& w) { w.setTitle(text); });
}

// Not clamped: a window without a content view answers a negative height.
double getTitleBarHeight(BDWWindow window) {
    auto target = windowOf(window, "getTitleBarHeight");
    const double contentHeight = target->contentViewFrame().value_or(Rect{}).height;
    return contentHeight - target->contentLayoutRect().height;
}

bool windowCanBeShown() { return _windowCanBeShown; }

void setAppWindow(BDWWindow window) { _appWindow = windowOf(window, "setAppWindow"); }

}  // namespace vornix::bitsdojo_window
