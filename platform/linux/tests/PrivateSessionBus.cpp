#include "platform/linux/tests/PrivateSessionBus.hpp"

#include <stdexcept>

namespace vornix::platform::linux::testing {

PrivateSessionBus::PrivateSessionBus()
    : daemon_({"dbus-daemon", "--session", "--nofork", "--print-address=1"}), address_(daemon_.readLine()) {
    if (address_.empty()) {
        throw std::runtime_error("dbus-daemon gave no address");
    }
}

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
