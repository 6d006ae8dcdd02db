#pragma once

#include <memory>

#include "engine/FlutterViewController.hpp"
#include "platform/doubles/EventLog.hpp"
#include "platform/doubles/WindowDouble.hpp"

namespace vornix::host::testing {

// The platform window class of a main window in tests: the window double with the two operations
// of a window that hosts the engine. It writes its frame reads and changes, its content view
// controller and its wake-up to the shared event log. Like AppKit, it takes the size of the
// content view controller's view when one is installed (`contentViewSize`), so a window that did
// not keep its frame would show it.
class MainWindowDouble : public platform::doubles::WindowDouble {
public:
    MainWindowDouble(platform::doubles::EventLog& log, platform::Rect frame,
                     platform::StyleMask styleMask = platform::windowStyle::titled);

    platform::Rect frame() const override;
    void setFrame(platform::Rect frame, bool display) override;

    virtual void setContentViewController(std::shared_ptr<engine::FlutterViewController> controller);
    virtual void awakeFromNib();

    const std::shared_ptr<engine::FlutterViewController>& contentViewController() const { return contentViewController_; }

    // The size of the engine's view before the window lays it out.
    platform::Size contentViewSize{1280, 720};

private:
    platform::doubles::EventLog& log_;
    std::shared_ptr<engine::FlutterViewController> contentViewController_;
};

}  // namespace vornix::host::testing
