#pragma once

#include <gio/gio.h>

#include <filesystem>
#include <string>

#include "platform/linux/tests/ChildProcess.hpp"

namespace vornix::platform::linux::testing {

// A D-Bus daemon of the test's own (a dbus-daemon child), so that tests never touch the user's
// session bus. It activates no services: a service a test does not play itself is missing.
// Stops with the object.
class PrivateSessionBus {
public:
    PrivateSessionBus();
    ~PrivateSessionBus();
    PrivateSessionBus(const PrivateSessionBus&) = delete;
    PrivateSessionBus& operator=(const PrivateSessionBus&) = delete;

    // The bus's address, as DBUS_SESSION_BUS_ADDRESS gives it.
    const std::string& address() const { return address_; }
    // A new connection to the bus, registered and with a unique name; the caller owns it.
    GDBusConnection* connect() const;

private:
    std::string configFile_;
    ChildProcess daemon_;
    std::string address_;
};

// Runs the thread's default GLib main context until `done` holds or 10 s pass.
template <class Predicate>
bool iterateUntil(Predicate done) {
    const gint64 deadline = g_get_monotonic_time() + 10 * G_USEC_PER_SEC;
    while (!done()) {
        if (g_get_monotonic_time() > deadline) {
            return false;
        }
        g_main_context_iteration(nullptr, FALSE);
        g_usleep(1000);
    }
    return true;
}

}  // namespace vornix::platform::linux::testing
