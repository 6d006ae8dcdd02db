#pragma once

#include <condition_variable>
#include <mutex>
#include <vector>

#include "platform/HttpFetcher.hpp"

namespace vornix::platform::doubles {

// An HTTP fetcher that answers every request with the response it was given and records the
// requests. While held, fetches wait until release() or until their request is cancelled, so a
// test can look at a check in flight.
class ScriptedHttpFetcher : public HttpFetcher {
public:
    HttpResponse fetch(const HttpRequest& request) override;

    void respond(HttpResponse response);
    void hold();
    void release();
    // Waits (up to `seconds`) until `count` fetches have begun.
    bool waitForRequests(std::size_t count, double seconds = 10.0);
    std::vector<HttpRequest> requests() const;

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    HttpResponse response_;
    bool held_ = false;
    std::vector<HttpRequest> requests_;
};

}  // namespace vornix::platform::doubles
