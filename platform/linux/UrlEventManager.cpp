#include "platform/linux/UrlEventManager.hpp"

namespace vornix::platform::linux {

void UrlEventManager::setEventHandler(EventHandler handler, FourCharCode eventClass, FourCharCode eventID) {
    handlers_[{eventClass, eventID}] = std::move(handler);
}

void UrlEventManager::removeEventHandler(FourCharCode eventClass, FourCharCode eventID) {
    handlers_.erase({eventClass, eventID});
}

bool UrlEventManager::openURL(const std::string& url) {
    const auto found = handlers_.find({internetEventClass, getURLEventID});
    if (found == handlers_.end()) {
        return false;
    }
    AppleEvent event;
    event.setParamDescriptor({url}, directObjectKeyword);
    AppleEvent reply;
    // A copy: the handler may replace or remove itself.
    EventHandler handler = found->second;
    handler(event, reply);
    return true;
}

}  // namespace vornix::platform::linux
