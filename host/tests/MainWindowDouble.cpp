#include "host/tests/MainWindowDouble.hpp"

#include <string>
#include <utility>

namespace vornix::host::testing {
namespace {

std::string textOf(platform::Rect rect) {
    auto number = [](double value) { return std::to_string(static_cast<long long>(value)); };
    return number(rect.x) + " " + number(rect.y) + " " + number(rect.width) + "x" + number(rect.height);
}

}  // namespace

MainWindowDouble::MainWindowDouble(platform::doubles::EventLog& log, platform::Rect frame, platform::StyleMask styleMask)
    : WindowDouble(frame, styleMask), log_(log) {}

platform::Rect MainWindowDouble::frame() const {
    log_.record("window.frame");
    return WindowDouble::frame();
}

void MainWindowDouble::setFrame(platform::Rect frame, bool display) {
    log_.record("window.setFrame " + textOf(frame) + (display ? " display" : " no display"));
    WindowDouble::setFrame(frame, display);
}

void MainWindowDouble::setContentViewController(std::shared_ptr<engine::FlutterViewController> controller) {
    log_.record("window.setContentViewController");
    contentViewController_ = std::move(controller);
    state.frame.width = contentViewSize.width;
    state.frame.height = contentViewSize.height;
}

void MainWindowDouble::awakeFromNib() { log_.record("window.awakeFromNib"); }

}  // namespace vornix::host::testing
