#include "platform/linux/GdkMonitorScreen.hpp"

#include "platform/linux/AppKitCoordinates.hpp"

namespace vornix::platform::linux {

namespace {

Rect rectOf(const GdkRectangle& area) { return {double(area.x), double(area.y), double(area.width), double(area.height)}; }

}  // namespace

GdkMonitorScreen::GdkMonitorScreen(GdkMonitor* monitor) : monitor_(GDK_MONITOR(g_object_ref(monitor))) {}

GdkMonitorScreen::~GdkMonitorScreen() { g_object_unref(monitor_); }

Rect GdkMonitorScreen::primaryGeometry(GdkDisplay* display) {
    GdkMonitor* primary = gdk_display_get_primary_monitor(display);
    if (!primary) {
        primary = gdk_display_get_monitor(display, 0);
    }
    GdkRectangle area{};
    if (primary) {
        gdk_monitor_get_geometry(primary, &area);
    }
    return rectOf(area);
}

Rect GdkMonitorScreen::frame() const {
    GdkRectangle area{};
    gdk_monitor_get_geometry(monitor_, &area);
    return appKitRectFromGdk(rectOf(area), primaryGeometry(gdk_monitor_get_display(monitor_)));
}

Rect GdkMonitorScreen::visibleFrame() const {
    GdkRectangle area{};
    gdk_monitor_get_workarea(monitor_, &area);
    return appKitRectFromGdk(rectOf(area), primaryGeometry(gdk_monitor_get_display(monitor_)));
}

}  // namespace vornix::platform::linux
