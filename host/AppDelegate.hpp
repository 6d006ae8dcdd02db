#pragma once

#include <memory>

#include "host/HostingController.hpp"
#include "host/WebEndpoints.hpp"
#include "platform/Popover.hpp"
#include "platform/StatusBar.hpp"
#include "platform/Updater.hpp"

namespace vornix::host {

// The application's delegate: start-up, the menu-bar icon and its popover, termination, and the
// updater's relaunch callback. The backend calls it on the main thread.
class AppDelegate : public platform::UpdaterDelegate {
public:
    explicit AppDelegate(WebEndpoints endpoints = {});
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    // Start-up, strictly in order: "finished launching"; the updater's delegate; the get-URL
    // handler; "hello" to the engine when its channel exists; then, on macOS 10.15 or later only,
    // the popover and the menu-bar item that toggles it.
    void applicationDidFinishLaunching();
    // Removes the get-URL handler; nothing else is torn down.
    void applicationWillTerminate();
    // A menu-bar service: closing its last window does not end it.
    bool applicationShouldTerminateAfterLastWindowClosed() const { return false; }
    // What the application does after one of its windows has closed: it ends only when none is
    // left and the answer above allows it.
    void windowDidClose();

    // The status item's action: closes the popover when shown, else shows it below the icon and
    // gives it keyboard focus.
    void togglePopover();

    // Opens the release-notes site once an update has relaunched the application.
    void updaterDidRelaunchApplication(platform::Updater& updater) override;

    // Both empty until start-up has made them, and for good below macOS 10.15.
    platform::Popover* popover() const { return popover_.get(); }
    platform::StatusItem* statusBarItem() const { return statusBarItem_.get(); }

private:
    WebEndpoints endpoints_;
    std::unique_ptr<platform::Popover> popover_;
    std::shared_ptr<platform::StatusItem> statusBarItem_;
    // Renders a copy of ContentView.sharedInstance in the popover and in the item's menu; goes
    // before both do.
    std::unique_ptr<HostingController> popoverContent_;
};

}  // namespace vornix::host
