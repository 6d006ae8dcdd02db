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

}  // namespace vornix::platform::macos
