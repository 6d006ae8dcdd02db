#include "platform/linux/tests/LoopbackHttpServer.hpp"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace vornix::platform::linux::testing {

namespace {

bool sendAll(int socket, const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t n = ::send(socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (n <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(n);
    }
    return true;
}

// Waits until the peer closes (or `stopFd` becomes readable); gives up after 30 s so that a
// broken test cannot hang the server.
void waitForClose(int socket, int stopFd) {
    pollfd fds[2] = {{socket, POLLIN, 0}, {stopFd, POLLIN, 0}};
    char scratch[256];
    while (::poll(fds, 2, 30000) > 0) {
        if (fds[1].revents != 0) {
            return;
        }
        if (::recv(socket, scratch, sizeof scratch, 0) <= 0) {
            return;
        }
    }
}

std::string reasonPhrase(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 301:
        return "Moved Permanently";
    case 302:
        return "Found";
    case 404:
        return "Not Found";
    case 500:
        return "Internal Server Error";
    default:
        return "Status";
    }
}

}  // namespace

LoopbackHttpServer::LoopbackHttpServer() {
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = 0;
    socklen_t length = sizeof address;
    if (listener_ < 0 || ::bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener_, 16) != 0 || ::getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length) != 0 ||
        ::pipe2(stopPipe_, O_CLOEXEC) != 0) {
        throw std::runtime_error("the loopback HTTP server could not start");
    }
    port_ = ntohs(address.sin_port);
    acceptor_ = std::thread([this] { acceptLoop(); });
}

LoopbackHttpServer::~LoopbackHttpServer() {
    stopping_ = true;
    const char wake = 'x';
    [[maybe_unused]] const auto written = ::write(stopPipe_[1], &wake, 1);
    acceptor_.join();
    for (std::thread& connection : connections_) {
        connection.join();
    }
    ::close(listener_);
    ::close(stopPipe_[0]);
    ::close(stopPipe_[1]);
}

void LoopbackHttpServer::route(const std::string& path, Route route) {
    std::lock_guard lock(mutex_);
    routes_[path] = std::move(route);
}

std::string LoopbackHttpServer::url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> LoopbackHttpServer::requests() const {
    std::lock_guard lock(mutex_);
    return requests_;
}

LoopbackHttpServer::Route LoopbackHttpServer::routeFor(const std::string& path) const {
    std::lock_guard lock(mutex_);
    const auto found = routes_.find(path);
    return found == routes_.end() ? Route{404, {}, "Not Found"} : found->second;
}

void LoopbackHttpServer::acceptLoop() {
    pollfd fds[2] = {{listener_, POLLIN, 0}, {stopPipe_[0], POLLIN, 0}};
    while (!stopping_) {
        if (::poll(fds, 2, -1) <= 0 || fds[1].revents != 0) {
            return;
        }
        const int client = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0) {
            connections_.emplace_back([this, client] {
                answer(client);
                ::close(client);
            });
        }
    }
}

void LoopbackHttpServer::answer(int client) {
    std::string request;
    char buffer[4096];
    while (request.find("\r\n\r\n") == std::string::npos && request.size() < 65536) {
        const ssize_t n = ::recv(client, buffer, sizeof buffer, 0);
        if (n <= 0) {
            return;
        }
        request.append(buffer, static_cast<std::size_t>(n));
    }
    {
        std::lock_guard lock(mutex_);
        requests_.push_back(request.substr(0, request.find("\r\n\r\n")));
    }
    const auto pathStart = request.find(' ') + 1;
    const std::string path = request.substr(pathStart, request.find(' ', pathStart) - pathStart);
    const Route route = routeFor(path);

    if (route.hold) {
        waitForClose(client, stopPipe_[0]);
        return;
    }
    std::string head = "HTTP/1.1 " + std::to_string(route.status) + " " + reasonPhrase(route.status) + "\r\n";
    for (const auto& [name, value] : route.headers) {
        head += name + ": " + value + "\r\n";
    }
    head += "Connection: close\r\n";
    if (route.endless) {
        head += "\r\n";
        if (!sendAll(client, head)) {
            return;
        }
        const std::string chunk(16384, 'x');
        while (!stopping_ && sendAll(client, chunk)) {
        }
        return;
    }
    head += "Content-Length: " + std::to_string(route.body.size()) + "\r\n\r\n";
    sendAll(client, head + route.body);
}

}  // namespace vornix::platform::linux::testing
