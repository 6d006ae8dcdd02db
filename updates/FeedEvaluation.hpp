#pragma once

#include "platform/HttpFetcher.hpp"
#include "updates/AppcastParser.hpp"
#include "updates/CheckOutcome.hpp"
#include "updates/Version.hpp"

namespace vornix::updates {

// Turns the server's answer into what the check found: a failure in plain words when the feed
// could not be fetched or read, otherwise the newest release that applies (see selectUpdate).
CheckOutcome evaluateFeed(const platform::HttpResponse& response, const Version& running, const Version& system,
                          const AppcastLimits& limits = {});

}  // namespace vornix::updates
