#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/CommandLine.hpp"
#include "platform/linux/HostApplication.hpp"

namespace vornix::app {

// The host on the Linux desktop: installs the GTK, GLib and POSIX services as the core's
// ports, gives the engine side to the development engine bridge, and runs the start-up of the
// application as the platform's application object would on macOS.
class LinuxHost {
public:
    LinuxHost();
    ~LinuxHost();
    LinuxHost(const LinuxHost&) = delete;
    LinuxHost& operator=(const LinuxHost&) = delete;

    // Runs the primary instance until it ends, or hands the launch over to it; the exit status.
    int run(int argc, char** argv);

private:
    struct Services;

    void launched(const std::vector<std::string>& arguments);
    void relaunched(const std::vector<std::string>& arguments);
    void terminating();
    void windowClosed();

    platform::linux::HostApplication* host_ = nullptr;
    std::unique_ptr<Services> services_;
    int exitStatus_ = 0;
};

}  // namespace vornix::app
