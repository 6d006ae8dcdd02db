#pragma once

#include <filesystem>
#include <string>

#include <gio/gio.h>

#include "bridge/EngineBridge.hpp"

namespace vornix::platform::linux {

// The socket of the development engine bridge (docs/ENGINE_BRIDGE.md): a Unix-domain socket
// at a path, mode 0600, serving one engine connection at a time on a GLib main context. It only
// moves bytes between the connection and the bridge; the protocol is the bridge's.
class EngineSocketServer {
public:
    // Listens at `path`. Throws std::runtime_error, with a message for a person, when the path
    // cannot be served (not a socket, served by another process, no permission).
    EngineSocketServer(bridge::EngineBridge& bridge, std::filesystem::path path, GMainContext* context = nullptr);
    // Closes the connection and removes the socket file.
    ~EngineSocketServer();
    EngineSocketServer(const EngineSocketServer&) = delete;
    EngineSocketServer& operator=(const EngineSocketServer&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    static gboolean onIncoming(GSocket* socket, GIOCondition condition, gpointer self);
    static gboolean onReadable(GSocket* socket, GIOCondition condition, gpointer self);
    static gboolean onWritable(GSocket* socket, GIOCondition condition, gpointer self);

    void accept();
    void readAvailable();
    void write(bridge::Bytes bytes);
    void flush();
    void closeConnection();

    bridge::EngineBridge& bridge_;
    std::filesystem::path path_;
    GMainContext* context_;
    GSocket* listener_ = nullptr;
    GSource* incoming_ = nullptr;
    GSocket* connection_ = nullptr;
    GSource* readable_ = nullptr;
    GSource* writable_ = nullptr;
    bridge::Bytes unsent_;
};

}  // namespace vornix::platform::linux
