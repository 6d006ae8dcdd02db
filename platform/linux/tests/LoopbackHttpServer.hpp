#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vornix::platform::linux::testing {

// A small HTTP/1.1 server on 127.0.0.1 and an ephemeral port, for tests: each path answers with a
// fixed status, headers and body; a path may stream without end or hold its answer until the
// client gives up or the server stops. One thread per connection; every connection closes after
// one answer.
class LoopbackHttpServer {
public:
    struct Route {
        int status = 200;
        std::vector<std::pair<std::string, std::string>> headers;
        std::string body;
        bool endless = false;  // streams bytes with no Content-Length until the client closes
        bool hold = false;     // sends nothing until the client closes or the server stops

        static Route held() {
            Route route;
            route.hold = true;
            return route;
        }
        static Route endlessBody() {
            Route route;
            route.endless = true;
            return route;
        }
    };

    LoopbackHttpServer();
    ~LoopbackHttpServer();
    LoopbackHttpServer(const LoopbackHttpServer&) = delete;
    LoopbackHttpServer& operator=(const LoopbackHttpServer&) = delete;

    void route(const std::string& path, Route route);
    void serve(const std::string& path, std::string body) { route(path, {200, {}, std::move(body)}); }

    std::uint16_t port() const { return port_; }
    std::string url(const std::string& path) const;
    // The request lines and headers received so far, one string per request.
    std::vector<std::string> requests() const;

private:
    void acceptLoop();
    void answer(int client);
    Route routeFor(const std::string& path) const;

    int listener_ = -1;
    int stopPipe_[2] = {-1, -1};
    std::uint16_t port_ = 0;
    std::atomic<bool> stopping_{false};
    mutable std::mutex mutex_;
    std::map<std::string, Route> routes_;
    std::vector<std::string> requests_;
    std::vector<std::thread> connections_;
    std::thread acceptor_;
};

}  // namespace vornix::platform::linux::testing
