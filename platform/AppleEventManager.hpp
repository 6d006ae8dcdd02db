#pragma once

#include <functional>
#include <string_view>

#include "platform/AppleEvent.hpp"
#include "platform/Port.hpp"

namespace vornix::platform {

// The Apple Event manager (NSAppleEventManager.sharedAppleEventManager): the system hands the
// host events, such as a URL of the application's scheme to open, through handlers installed
// per event class and ID. Events arrive on the main thread.
class AppleEventManager : public Port<AppleEventManager> {
public:
    static constexpr std::string_view portName = "the Apple Event manager";

    using EventHandler = std::function<void(const AppleEvent& event, AppleEvent& replyEvent)>;

    virtual ~AppleEventManager() = default;

    // Installs `handler` for the event class and ID, in place of any handler there was.
    virtual void setEventHandler(EventHandler handler, FourCharCode eventClass, FourCharCode eventID) = 0;
    // Removes the handler; events of that class and ID are then no longer delivered.
    virtual void removeEventHandler(FourCharCode eventClass, FourCharCode eventID) = 0;
};

}  // namespace vornix::platform
