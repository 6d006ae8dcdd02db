#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace vornix::updates {

// Where the release feed is and how long and how large fetching it may get.
struct UpdateSettings {
    std::string feedUrl;
    double timeoutSeconds = 30.0;
    std::size_t maxFeedBytes = 4 * 1024 * 1024;
};

// Environment variables that point a running host at another feed, for desktop tests against a
// local server: the feed's address and the time-out in seconds.
inline constexpr const char* feedUrlVariable = "VORNIX_UPDATE_FEED_URL";
inline constexpr const char* timeoutVariable = "VORNIX_UPDATE_TIMEOUT";

using EnvironmentLookup = std::function<const char*(const char* name)>;

// `settings` with what the environment overrides. A time-out that is not a positive number of
// seconds is ignored, with one line saying so.
UpdateSettings withEnvironmentOverrides(UpdateSettings settings, const EnvironmentLookup& lookup);

}  // namespace vornix::updates
