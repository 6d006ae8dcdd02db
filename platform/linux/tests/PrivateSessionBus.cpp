#include "platform/linux/tests/PrivateSessionBus.hpp"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace vornix::platform::linux::testing {

namespace {

// A session bus that starts no services: without service folders, a name nobody owns stays
// unowned, even on a machine where a desktop has installed a server for it (a notification
// daemon, say), so "no such service" is what the tests see everywhere.
constexpr const char* busConfig = R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

std::string writeBusConfig() {
    std::string path = (std::filesystem::temp_directory_path() / "vornix-bus-XXXXXX").string();
    const int file = mkstemp(path.data());
    if (file < 0) {
        throw std::runtime_error("cannot make the bus configuration file");
    }
    close(file);
    std::ofstream(path) << busConfig;
    return path;
}

}  // namespace

PrivateSessionBus::PrivateSessionBus()
    : configFile_(writeBusConfig()),
      daemon_({"dbus-daemon", "--config-file=" + configFile_, "--nofork", "--print-address=1"}),
      address_(daemon_.readLine()) {
    if (address_.empty()) {
        throw std::runtime_error("dbus-daemon gave no address");
    }
}

PrivateSessionBus::~PrivateSessionBus() { std::filesystem::remove(configFile_); }

GDBusConnection* PrivateSessionBus::connect() const {
    GError* error = nullptr;
    GDBusConnection* connection = g_dbus_connection_new_for_address_sync(
        address_.c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, &error);
    if (connection == nullptr) {
        const std::string message = error->message;
        g_error_free(error);
        throw std::runtime_error("cannot connect to the private bus: " + message);
    }
    return connection;
}

}  // namespace vornix::platform::linux::testing
