#pragma once

#include "platform/Workspace.hpp"

namespace vornix::platform::macos {

// Who opens what on macOS: NSWorkspace.
class AppKitWorkspace final : public Workspace {
public:
    bool open(const url::URL& url) override;
    std::optional<url::URL> urlForApplication(const url::URL& toOpen) override;
};

}  // namespace vornix::platform::macos
