#pragma once

#include <gdk/gdk.h>

#include "platform/Screen.hpp"

namespace vornix::platform::linux {

// A monitor as a screen in AppKit's terms: the frame is the monitor's geometry, the visible
// frame its work area (without panels), both counted from the primary monitor's bottom left.
class GdkMonitorScreen : public Screen {
public:
    explicit GdkMonitorScreen(GdkMonitor* monitor);
    ~GdkMonitorScreen() override;
    GdkMonitorScreen(const GdkMonitorScreen&) = delete;
    GdkMonitorScreen& operator=(const GdkMonitorScreen&) = delete;

    Rect frame() const override;
    Rect visibleFrame() const override;

    // The primary monitor's rectangle in GDK's terms, the reference of AppKit coordinates.
    static Rect primaryGeometry(GdkDisplay* display);

private:
    GdkMonitor* monitor_;
};

}  // namespace vornix::platform::linux
