#include "updates/FeedEvaluation.hpp"

#include "updates/UpdateSelection.hpp"

namespace vornix::updates {

namespace {

std::string reasonFor(platform::HttpFailure failure) {
    using platform::HttpFailure;
    switch (failure) {
    case HttpFailure::refused:
        return "The update server pointed to an address that is not secure.";
    case HttpFailure::unreachable:
        return "The update server could not be reached. Check your internet connection and try again.";
    case HttpFailure::untrusted:
        return "The update server's identity could not be verified.";
    case HttpFailure::timedOut:
        return "The update server did not answer in time. Try again later.";
    case HttpFailure::tooLarge:
        return "The update information from the server is larger than expected.";
    case HttpFailure::none:
    case HttpFailure::cancelled:
    case HttpFailure::other:
        break;
    }
    return "The update information could not be downloaded.";
}

}  // namespace

CheckOutcome evaluateFeed(const platform::HttpResponse& response, const Version& running, const Version& system,
                          const AppcastLimits& limits) {
    if (response.failure != platform::HttpFailure::none) {
        return CheckFailed{reasonFor(response.failure), response.detail};
    }
    if (response.status < 200 || response.status > 299) {
        return CheckFailed{"The update server answered with an error (HTTP " + std::to_string(response.status) + ").",
                           "the server answered HTTP " + std::to_string(response.status)};
    }
    try {
        const Appcast appcast = parseAppcast(response.body, limits);
        if (auto item = selectUpdate(appcast, running, system)) {
            return UpdateAvailable{std::move(*item)};
        }
        return UpToDate{};
    } catch (const AppcastError& error) {
        return CheckFailed{"The update information from the server could not be read.",
                           std::string("the feed could not be read: ") + error.what()};
    }
}

}  // namespace vornix::updates
