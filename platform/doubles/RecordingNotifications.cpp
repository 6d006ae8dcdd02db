#include "platform/doubles/RecordingNotifications.hpp"

namespace vornix::platform::doubles {

void RecordingNotifications::post(const Notification& notification, ActionHandler onAction) {
    posted_.push_back({notification, std::move(onAction)});
}

void RecordingNotifications::choose(std::size_t index, const std::string& key) {
    if (const ActionHandler& handler = posted_.at(index).onAction) {
        handler(key);
    }
}

}  // namespace vornix::platform::doubles
