#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window_api.hpp"

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"

namespace {

namespace bdw = vornix::bitsdojo_window;

// Slot order is fixed by the engine side: isWindowVisible comes before isWindowMaximized.
constexpr _BDWPublicAPI publicAPI = {
    .getAppWindow = bdw::getAppWindow,
    .setWindowCanBeShown = bdw::setWindowCanBeShown,
    .setInsideDoWhenWindowReady = bdw::setInsideDoWhenWindowReady,
    .showWindow = bdw::showWindow,
    .hideWindow = bdw::hideWindow,
    .moveWindow = bdw::moveWindow,
    .setSize = bdw::setSize,
    .setMinSize = bdw::setMinSize,
    .setMaxSize = bdw::setMaxSize,
    .getScreenInfoForWindow = bdw::getScreenInfoForWindow,
    .setPositionForWindow = bdw::setPositionForWindow,
    .setRectForWindow = bdw::setRectForWindow,
    .getRectForWindow = bdw::getRectForWindow,
    .isWindowVisible = bdw::isWindowVisible,
    .isWindowMaximized = bdw::isWindowMaximized,
    .maximizeOrRestoreWindow = bdw::maximizeOrRestoreWindow,
    .maximizeWindow = bdw::maximizeWindow,
    .minimizeWindow = bdw::minimizeWindow,
    .closeWindow = bdw::closeWindow,
    .setWindowTitle = bdw::setWindowTitle,
    .getTitleBarHeight = bdw::getTitleBarHeight,
};

constexpr _BDWPrivateAPI privateAPI = {
    .windowCanBeShown = bdw::windowCanBeShown,
    .setAppWindow = bdw::setAppWindow,
};

constexpr _BDWAPI api = {.publicAPI = &publicAPI, .privateAPI = &privateAPI};

}  // namespace

extern "C" const _BDWAPI* bitsdojo_window_api() { return &api; }
