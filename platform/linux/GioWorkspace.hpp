#pragma once

#include "platform/Workspace.hpp"

namespace vornix::platform::linux {

// The workspace through GIO. An application's location is the file URL of its desktop entry,
// and opening that location starts the application (as opening an application bundle does on
// macOS), rather than showing the entry's text.
class GioWorkspace : public Workspace {
public:
    bool open(const url::URL& url) override;
    std::optional<url::URL> urlForApplication(const url::URL& toOpen) override;
};

}  // namespace vornix::platform::linux
