#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Alert.hpp"
#include "platform/Notifications.hpp"
#include "updates/CheckOutcome.hpp"
#include "updates/Version.hpp"

namespace vornix::updates {

// The alert that answers "Check for Updates...", with the address each of its buttons opens.
struct UpdatePrompt {
    platform::Alert alert;
    std::vector<std::string> buttonUrls;  // one per button; empty when the button only closes the alert

    // The address behind the button the user chose, or empty.
    std::string urlForAnswer(platform::ModalResponse answer) const;
};

UpdatePrompt promptFor(const CheckOutcome& outcome, const Version& running);

// The desktop notification that offers a release found by a background check, with the address
// each of its actions opens (clicking the notification itself downloads).
struct UpdateNotice {
    platform::Notification notification;
    std::map<std::string, std::string> actionUrls;

    std::string urlForAction(const std::string& key) const;
};

UpdateNotice noticeFor(const AppcastItem& item, const Version& running);

}  // namespace vornix::updates
