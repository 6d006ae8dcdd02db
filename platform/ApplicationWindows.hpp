#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/Port.hpp"
#include "platform/Window.hpp"

namespace vornix::platform {

// The application's list of windows (NSApp.windows).
class ApplicationWindows : public Port<ApplicationWindows> {
public:
    static constexpr std::string_view portName = "application windows";

    virtual ~ApplicationWindows() = default;

    // In the application's own order; empty when it has no window.
    virtual std::vector<std::shared_ptr<Window>> windows() const = 0;
};

}  // namespace vornix::platform
