#pragma once

#include <cstddef>
#include <string>

namespace vornix::updates {

// Where the release feed is and how long and how large fetching it may get.
struct UpdateSettings {
    std::string feedUrl;
    double timeoutSeconds = 30.0;
    std::size_t maxFeedBytes = 4 * 1024 * 1024;
};

}  // namespace vornix::updates
