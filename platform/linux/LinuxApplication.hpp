#pragma once

#include "platform/Application.hpp"
#include "platform/linux/HostApplication.hpp"

namespace vornix::platform::linux {

// The application port on the host's GtkApplication.
class LinuxApplication : public Application {
public:
    // The features the core gates on macOS 10.15 (the status item, its popover, the UI
    // interactions channel) are all there on the Linux desktop, so the backend reports that
    // level rather than a kernel or distribution number that means nothing to the core.
    static constexpr OperatingSystemVersion reportedVersion{10, 15, 0};

    explicit LinuxApplication(HostApplication& host) : host_(host) {}

    OperatingSystemVersion systemVersion() const override { return reportedVersion; }
    std::size_t windowCount() const override;
    void terminate() override { host_.quit(); }

private:
    HostApplication& host_;
};

}  // namespace vornix::platform::linux
