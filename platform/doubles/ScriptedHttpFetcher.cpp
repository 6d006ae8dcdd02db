#include "platform/doubles/ScriptedHttpFetcher.hpp"

#include <chrono>

namespace vornix::platform::doubles {

HttpResponse ScriptedHttpFetcher::fetch(const HttpRequest& request) {
    std::unique_lock lock(mutex_);
    requests_.push_back(request);
    changed_.notify_all();
    // Held fetches also look at the request's cancellation, as a real fetcher does.
    while (held_) {
        if (request.isCancelled && request.isCancelled()) {
            return {HttpFailure::cancelled, 0, "", "cancelled"};
        }
        changed_.wait_for(lock, std::chrono::milliseconds(5));
    }
    return response_;
}

void ScriptedHttpFetcher::respond(HttpResponse response) {
    std::lock_guard lock(mutex_);
    response_ = std::move(response);
}

void ScriptedHttpFetcher::hold() {
    std::lock_guard lock(mutex_);
    held_ = true;
}

void ScriptedHttpFetcher::release() {
    std::lock_guard lock(mutex_);
    held_ = false;
    changed_.notify_all();
}

bool ScriptedHttpFetcher::waitForRequests(std::size_t count, double seconds) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::duration<double>(seconds),
                             [&] { return requests_.size() >= count; });
}

std::vector<HttpRequest> ScriptedHttpFetcher::requests() const {
    std::lock_guard lock(mutex_);
    return requests_;
}

}  // namespace vornix::platform::doubles
