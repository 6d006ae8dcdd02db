#pragma once

#include "platform/Alerts.hpp"

namespace vornix::platform::linux {

// Modal alerts as GTK message dialogs: the message text in bold, the informative text under it,
// the buttons in the order given. Like the platform's alerts, only a button answers: closing
// the dialog by other means is refused. An open popover closes when an alert comes up.
class GtkAlerts : public Alerts {
public:
    ModalResponse runModal(const Alert& alert) override;
};

}  // namespace vornix::platform::linux
