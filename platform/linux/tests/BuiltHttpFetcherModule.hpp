#pragma once

#include <memory>

#include "platform/linux/HttpFetcherModule.hpp"

namespace vornix::platform::linux::testing {

// The HTTP fetcher module as this build made it, for tests that fetch as the host does.
inline std::unique_ptr<HttpFetcherModule> builtHttpFetcherModule() {
    return std::make_unique<HttpFetcherModule>(VORNIX_HTTP_FETCHER_MODULE);
}

}  // namespace vornix::platform::linux::testing
