#pragma once

#include "platform/ApplicationWindows.hpp"

namespace vornix::platform::macos {

// NSApp.windows, each as a window port object.
class AppKitApplicationWindows final : public ApplicationWindows {
public:
    std::vector<std::shared_ptr<Window>> windows() const override;
};

}  // namespace vornix::platform::macos
