#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <string>

#include "platform/HttpFetcher.hpp"

namespace vornix::platform::linux {

// The HTTP fetcher that lives in the module at `file`, loaded on the first fetch rather than
// when this is made: libcurl brings OpenSSL, GnuTLS and Kerberos with it, about a fifth of the
// host's memory and start-up time, for a check that runs rarely and off the main thread. A module that
// cannot be loaded fails every fetch with `HttpFailure::other` and says why in the detail.
class HttpFetcherModule : public HttpFetcher {
public:
    explicit HttpFetcherModule(std::filesystem::path file);

    HttpResponse fetch(const HttpRequest& request) override;

private:
    void load();

    std::filesystem::path file_;
    std::once_flag loading_;
    std::unique_ptr<HttpFetcher> fetcher_;
    std::string loadError_;
};

}  // namespace vornix::platform::linux
