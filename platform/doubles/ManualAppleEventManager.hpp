#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/AppleEventManager.hpp"

namespace vornix::platform::doubles {

// An Apple Event manager for tests: a test plays the system and delivers events by hand;
// an event whose class and ID have no handler (never installed, or removed) goes nowhere.
class ManualAppleEventManager : public AppleEventManager {
public:
    void setEventHandler(EventHandler handler, FourCharCode eventClass, FourCharCode eventID) override;
    void removeEventHandler(FourCharCode eventClass, FourCharCode eventID) override;

    bool hasHandler(FourCharCode eventClass, FourCharCode eventID) const;
    // Delivers `event` to the handler of its class and ID; false when there is none.
    bool deliver(const AppleEvent& event, FourCharCode eventClass, FourCharCode eventID);
    // Delivers a get-URL event whose direct object holds `url`.
    bool deliverGetURL(std::string url);

private:
    std::map<std::pair<FourCharCode, FourCharCode>, EventHandler> handlers_;
};

}  // namespace vornix::platform::doubles
