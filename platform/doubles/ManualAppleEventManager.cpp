#include "platform/doubles/ManualAppleEventManager.hpp"

namespace vornix::platform::doubles {

void ManualAppleEventManager::setEventHandler(EventHandler handler, FourCharCode eventClass, FourCharCode eventID) {
    handlers_.insert_or_assign(std::pair(eventClass, eventID), std::move(handler));
}

void ManualAppleEventManager::removeEventHandler(FourCharCode eventClass, FourCharCode eventID) {
    handlers_.erase(std::pair(eventClass, eventID));
}

bool ManualAppleEventManager::hasHandler(FourCharCode eventClass, FourCharCode eventID) const {
    return handlers_.contains(std::pair(eventClass, eventID));
}

bool ManualAppleEventManager::deliver(const AppleEvent& event, FourCharCode eventClass, FourCharCode eventID) {
    const auto found = handlers_.find(std::pair(eventClass, eventID));
    if (found == handlers_.end()) {
        return false;
    }
    // A copy, so that a handler that removes itself finishes its own call.
    const EventHandler handler = found->second;
    AppleEvent reply;
    handler(event, reply);
    return true;
}

bool ManualAppleEventManager::deliverGetURL(std::string url) {
    AppleEvent event;
    event.setParamDescriptor(AppleEventDescriptor{std::move(url)}, directObjectKeyword);
    return deliver(event, internetEventClass, getURLEventID);
}

}  // namespace vornix::platform::doubles
