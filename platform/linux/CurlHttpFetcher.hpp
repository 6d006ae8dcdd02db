#pragma once

#include "platform/HttpFetcher.hpp"

namespace vornix::platform::linux {

// The HTTP fetcher on libcurl: certificates verified, HTTPS only (plain HTTP when the request
// allows it), redirects to HTTPS only, a total time-out and a bound on the body's size.
class CurlHttpFetcher : public HttpFetcher {
public:
    CurlHttpFetcher();
    HttpResponse fetch(const HttpRequest& request) override;
};

}  // namespace vornix::platform::linux
