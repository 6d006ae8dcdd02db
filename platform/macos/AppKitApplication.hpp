#pragma once

#include "platform/Application.hpp"

namespace vornix::platform::macos {

// The application port on macOS: NSApp and the process's NSProcessInfo.
class AppKitApplication final : public Application {
public:
    OperatingSystemVersion systemVersion() const override;
    std::size_t windowCount() const override;
    void terminate() override;
};

// Makes the application the active one. A menu-bar application (LSUIElement) is not activated by
// a click on its status item, so without this its popover's window gets no keyboard focus when
// made key and an alert may open behind other applications' windows.
void activateApplication();

}  // namespace vornix::platform::macos
