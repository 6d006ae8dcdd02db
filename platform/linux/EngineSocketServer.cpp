#include "platform/linux/EngineSocketServer.hpp"

#include <array>
#include <iostream>
#include <stdexcept>
#include <system_error>

#include <gio/gunixsocketaddress.h>
#include <sys/stat.h>

#include "bridge/FrameError.hpp"

namespace vornix::platform::linux {

namespace {

std::runtime_error failure(const std::filesystem::path& path, const std::string& why) {
    return std::runtime_error("cannot serve the engine bridge at " + path.string() + ": " + why);
}

std::string takeMessage(GError* error) {
    std::string message = error ? error->message : "unknown error";
    g_clear_error(&error);
    return message;
}

GSocketAddress* addressOf(const std::filesystem::path& path) {
    return g_unix_socket_address_new(path.c_str());
}

// True when some process accepts connections at `path`.
bool served(const std::filesystem::path& path) {
    GSocket* probe = g_socket_new(G_SOCKET_FAMILY_UNIX, G_SOCKET_TYPE_STREAM, G_SOCKET_PROTOCOL_DEFAULT, nullptr);
    if (!probe) {
        return false;
    }
    GSocketAddress* address = addressOf(path);
    const bool connected = g_socket_connect(probe, address, nullptr, nullptr);
    g_object_unref(address);
    g_object_unref(probe);
    return connected;
}

// A socket left behind by a host that died is taken over; anything else at the path is kept.
void clearStaleSocket(const std::filesystem::path& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) {
        return;
    }
    if (!S_ISSOCK(status.st_mode)) {
        throw failure(path, "the path exists and is not a socket");
    }
    if (served(path)) {
        throw failure(path, "another process is serving it");
    }
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

GSource* watch(GSocket* socket, GIOCondition condition, GSocketSourceFunc callback, gpointer self,
               GMainContext* context) {
    GSource* source = g_socket_create_source(socket, condition, nullptr);
    g_source_set_callback(source, reinterpret_cast<GSourceFunc>(reinterpret_cast<void (*)()>(callback)), self, nullptr);
    g_source_attach(source, context);
    return source;
}

void unwatch(GSource*& source) {
    if (source) {
        g_source_destroy(source);
        g_source_unref(source);
        source = nullptr;
    }
}

}  // namespace

EngineSocketServer::EngineSocketServer(bridge::EngineBridge& bridge, std::filesystem::path path, GMainContext* context)
    : bridge_(bridge), path_(std::move(path)), context_(context ? context : g_main_context_default()) {
    clearStaleSocket(path_);
    GError* error = nullptr;
    listener_ = g_socket_new(G_SOCKET_FAMILY_UNIX, G_SOCKET_TYPE_STREAM, G_SOCKET_PROTOCOL_DEFAULT, &error);
    if (!listener_) {
        throw failure(path_, takeMessage(error));
    }
    GSocketAddress* address = addressOf(path_);
    const bool bound = g_socket_bind(listener_, address, FALSE, &error);
    g_object_unref(address);
    if (!bound) {
        g_clear_object(&listener_);
        throw failure(path_, takeMessage(error));
    }
    // Nobody can connect before listen(), so tightening the mode here leaves no window open.
    if (chmod(path_.c_str(), S_IRUSR | S_IWUSR) != 0 || !g_socket_listen(listener_, &error)) {
        const std::string why = error ? takeMessage(error) : std::system_category().message(errno);
        g_clear_object(&listener_);
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
        throw failure(path_, why);
    }
    g_socket_set_blocking(listener_, FALSE);
    incoming_ = watch(listener_, G_IO_IN, onIncoming, this, context_);
}

EngineSocketServer::~EngineSocketServer() {
    closeConnection();
    unwatch(incoming_);
    g_socket_close(listener_, nullptr);
    g_clear_object(&listener_);
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

gboolean EngineSocketServer::onIncoming(GSocket*, GIOCondition, gpointer self) {
    static_cast<EngineSocketServer*>(self)->accept();
    return G_SOURCE_CONTINUE;
}

gboolean EngineSocketServer::onReadable(GSocket*, GIOCondition, gpointer self) {
    static_cast<EngineSocketServer*>(self)->readAvailable();
    return G_SOURCE_CONTINUE;
}

gboolean EngineSocketServer::onWritable(GSocket*, GIOCondition, gpointer self) {
    static_cast<EngineSocketServer*>(self)->flush();
    return G_SOURCE_CONTINUE;
}

void EngineSocketServer::accept() {
    GSocket* incoming = g_socket_accept(listener_, nullptr, nullptr);
    if (!incoming) {
        return;
    }
    if (connection_) {
        // One engine at a time: a second one is turned away.
        g_socket_close(incoming, nullptr);
        g_object_unref(incoming);
        return;
    }
    connection_ = incoming;
    g_socket_set_blocking(connection_, FALSE);
    readable_ = watch(connection_, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR), onReadable, this, context_);
    bridge_.connect([this](bridge::Bytes bytes) { write(std::move(bytes)); });
}

void EngineSocketServer::readAvailable() {
    std::array<std::uint8_t, 64 * 1024> buffer{};
    for (;;) {
        GError* error = nullptr;
        const gssize received = g_socket_receive(connection_, reinterpret_cast<gchar*>(buffer.data()), buffer.size(),
                                                 nullptr, &error);
        if (received < 0 && g_error_matches(error, G_IO_ERROR, G_IO_ERROR_WOULD_BLOCK)) {
            g_clear_error(&error);
            return;
        }
        if (received <= 0) {
            g_clear_error(&error);
            closeConnection();
            return;
        }
        try {
            bridge_.receive(std::span(buffer.data(), static_cast<std::size_t>(received)));
        } catch (const bridge::FrameError& fault) {
            std::cerr << "engine bridge: closing the engine's connection: " << fault.what() << std::endl;
            closeConnection();
            return;
        }
        if (!connection_) {
            return;
        }
    }
}

void EngineSocketServer::write(bridge::Bytes bytes) {
    unsent_.insert(unsent_.end(), bytes.begin(), bytes.end());
    flush();
}

void EngineSocketServer::flush() {
    while (connection_ && !unsent_.empty()) {
        GError* error = nullptr;
        const gssize sent = g_socket_send(connection_, reinterpret_cast<const gchar*>(unsent_.data()), unsent_.size(),
                                          nullptr, &error);
        if (sent < 0 && g_error_matches(error, G_IO_ERROR, G_IO_ERROR_WOULD_BLOCK)) {
            g_clear_error(&error);
            if (!writable_) {
                writable_ = watch(connection_, G_IO_OUT, onWritable, this, context_);
            }
            return;
        }
        if (sent < 0) {
            g_clear_error(&error);
            // The engine is gone; its end shows up on the reading side as well.
            unsent_.clear();
            break;
        }
        unsent_.erase(unsent_.begin(), unsent_.begin() + sent);
    }
    unwatch(writable_);
}

void EngineSocketServer::closeConnection() {
    if (!connection_) {
        return;
    }
    unwatch(readable_);
    unwatch(writable_);
    unsent_.clear();
    g_socket_close(connection_, nullptr);
    g_clear_object(&connection_);
    bridge_.disconnect();
}

}  // namespace vornix::platform::linux
