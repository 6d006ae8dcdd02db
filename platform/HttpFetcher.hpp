#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/Port.hpp"

namespace vornix::platform {

struct HttpRequest {
    std::string url;
    // Plain HTTP is let through only when the caller has decided the address is safe for it;
    // redirects are followed to HTTPS addresses only, whatever this says.
    bool allowPlainHttp = false;
    double timeoutSeconds = 30.0;
    std::size_t maxBytes = 4 * 1024 * 1024;
    std::string userAgent;
    // Asked now and then while the request runs; true ends it early (the host is going away).
    std::function<bool()> isCancelled;
};

// Why a request got no answer.
enum class HttpFailure {
    none,
    refused,      // a scheme the request does not allow, at the start or on a redirect
    unreachable,  // no such host, or no connection
    untrusted,    // the server's certificate did not verify
    timedOut,
    tooLarge,     // the body passed the request's maxBytes
    cancelled,    // isCancelled answered true
    other,
};

struct HttpResponse {
    HttpFailure failure = HttpFailure::none;
    long status = 0;     // the HTTP status when the server answered
    std::string body;
    std::string detail;  // the platform's own words on a failure, for the diagnostics line
};

// Fetches one URL with GET. `fetch` blocks until the answer, the time-out or the size bound, so
// callers run it off the main thread; it may be called from any thread.
class HttpFetcher : public Port<HttpFetcher> {
public:
    static constexpr std::string_view portName = "HTTP fetcher";

    virtual ~HttpFetcher() = default;
    virtual HttpResponse fetch(const HttpRequest& request) = 0;
};

}  // namespace vornix::platform
