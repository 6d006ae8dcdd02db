#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/AppleEventManager.hpp"

namespace vornix::platform::linux {

// The get-URL events of the Linux desktop. The system opens a URL of the host's scheme by
// launching the host with it (the desktop entry's x-scheme-handler); the single-instance
// application hands that launch's URL to the running host, which delivers it here as a
// get-URL event with the URL as its direct object, to the handler installed, if any.
class UrlEventManager : public AppleEventManager {
public:
    void setEventHandler(EventHandler handler, FourCharCode eventClass, FourCharCode eventID) override;
    void removeEventHandler(FourCharCode eventClass, FourCharCode eventID) override;

    // A URL the system asked the host to open; true when a handler took it.
    bool openURL(const std::string& url);

private:
    std::map<std::pair<FourCharCode, FourCharCode>, EventHandler> handlers_;
};

}  // namespace vornix::platform::linux
