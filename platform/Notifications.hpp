#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Port.hpp"

namespace vornix::platform {

struct NotificationAction {
    std::string key;    // handed back when the user picks the action
    std::string label;  // the button's text
};

// A desktop notification. Clicking the notification itself reports the key "default".
struct Notification {
    std::string title;
    std::string body;
    std::vector<NotificationAction> actions;
};

// The desktop's notification centre. Called on the main thread; `onAction` runs on the main
// thread with the key of the action the user picked, at most once, or never when the
// notification is dismissed.
class Notifications : public Port<Notifications> {
public:
    static constexpr std::string_view portName = "notifications";
    static constexpr std::string_view defaultAction = "default";

    using ActionHandler = std::function<void(const std::string& key)>;

    virtual ~Notifications() = default;
    virtual void post(const Notification& notification, ActionHandler onAction) = 0;
};

}  // namespace vornix::platform
