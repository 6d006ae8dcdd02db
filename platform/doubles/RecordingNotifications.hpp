#pragma once

#include <string>
#include <vector>

#include "platform/Notifications.hpp"

namespace vornix::platform::doubles {

// Keeps the notifications posted; `choose` plays the user picking one of their actions.
class RecordingNotifications : public Notifications {
public:
    struct Posted {
        Notification notification;
        ActionHandler onAction;
    };

    void post(const Notification& notification, ActionHandler onAction) override;

    const std::vector<Posted>& posted() const { return posted_; }
    void choose(std::size_t index, const std::string& key);

private:
    std::vector<Posted> posted_;
};

}  // namespace vornix::platform::doubles
