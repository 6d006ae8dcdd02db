#include "platform/linux/tests/PrivateSessionBus.hpp"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

extern char** environ;

namespace vornix::platform::linux::testing {

PrivateSessionBus::PrivateSessionBus() {
    int output[2];
    if (::pipe(output) != 0) {
        throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], 1);
    posix_spawn_file_actions_addclose(&actions, output[0]);
    char* argv[] = {const_cast<char*>("dbus-daemon"), const_cast<char*>("--session"), const_cast<char*>("--nofork"),
                    const_cast<char*>("--print-address=1"), nullptr};
    const int started = posix_spawnp(&child_, "dbus-daemon", &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(output[1]);
    if (started != 0) {
        ::close(output[0]);
        throw std::runtime_error("dbus-daemon could not be started");
    }
    FILE* reader = ::fdopen(output[0], "r");
    char line[1024] = "";
    const bool read = reader != nullptr && std::fgets(line, sizeof line, reader) != nullptr;
    if (reader != nullptr) {
        std::fclose(reader);
    }
    address_ = line;
    while (!address_.empty() && (address_.back() == '\n' || address_.back() == '\r')) {
        address_.pop_back();
    }
    if (!read || address_.empty()) {
        throw std::runtime_error("dbus-daemon gave no address");
    }
}

PrivateSessionBus::~PrivateSessionBus() {
    ::kill(child_, SIGTERM);
    int status = 0;
    ::waitpid(child_, &status, 0);
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
