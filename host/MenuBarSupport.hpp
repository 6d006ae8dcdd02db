#pragma once

#include "platform/Application.hpp"

namespace vornix::host {

// The menu-bar interface (status item, popover, UI interactions channel) needs macOS 10.15 or later;
// on older systems the host runs without it.
inline constexpr platform::OperatingSystemVersion minimumMenuBarSystem{10, 15, 0};

// Whether the running system, as the application reports it, has the menu-bar interface.
inline bool systemSupportsMenuBar() {
    return platform::Application::current().systemVersion() >= minimumMenuBarSystem;
}

}  // namespace vornix::host
