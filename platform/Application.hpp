#pragma once

#include <compare>
#include <cstddef>
#include <string_view>

#include "platform/Port.hpp"

namespace vornix::platform {

// The operating system's version as the platform reports it (NSProcessInfo's operatingSystemVersion
// on macOS; on Linux whatever the backend is configured to report).
struct OperatingSystemVersion {
    int majorVersion = 0;
    int minorVersion = 0;
    int patchVersion = 0;
    friend auto operator<=>(const OperatingSystemVersion&, const OperatingSystemVersion&) = default;
};

// The running application object (NSApplication / GtkApplication).
class Application : public Port<Application> {
public:
    static constexpr std::string_view portName = "application";

    virtual ~Application() = default;

    virtual OperatingSystemVersion systemVersion() const = 0;
    // How many of the application's windows are open.
    virtual std::size_t windowCount() const = 0;
    virtual void terminate() = 0;
};

}  // namespace vornix::platform
