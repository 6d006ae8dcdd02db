#pragma once

#include "platform/Alerts.hpp"

namespace vornix::platform::macos {

// Modal alerts on macOS: NSAlert.
class AppKitAlerts final : public Alerts {
public:
    ModalResponse runModal(const Alert& alert) override;
};

}  // namespace vornix::platform::macos
