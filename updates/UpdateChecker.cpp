#include "updates/UpdateChecker.hpp"

#include "platform/HttpFetcher.hpp"
#include "platform/MainQueue.hpp"
#include "updates/FeedAddress.hpp"
#include "updates/FeedEvaluation.hpp"
#include "updates/UpdateMessages.hpp"

namespace vornix::updates {

UpdateChecker::UpdateChecker(UpdateSettings settings, Version running, Version system, Completion completion)
    : settings_(std::move(settings)),
      running_(std::move(running)),
      system_(std::move(system)),
      completion_(std::move(completion)),
      self_(std::make_shared<UpdateChecker*>(this)) {}

UpdateChecker::~UpdateChecker() {
    self_.reset();
    *stopping_ = true;
    if (worker_.joinable()) {
        worker_.join();
    }
}

void UpdateChecker::start(CheckMode mode) {
    if (checking_) {
        if (mode == CheckMode::interactive) {
            mode_ = mode;
        }
        return;
    }
    checking_ = true;
    mode_ = mode;
    if (worker_.joinable()) {
        worker_.join();  // the previous fetch has already handed over its report
    }

    platform::MainQueue& mainQueue = platform::MainQueue::current();
    std::weak_ptr<UpdateChecker*> self = self_;
    const auto deliver = [&mainQueue, self](CheckOutcome outcome) {
        mainQueue.async([self, outcome = std::move(outcome)] {
            if (const auto checker = self.lock()) {
                (*checker)->report(outcome);
            }
        });
    };

    const FeedTransport transport = feedTransport(settings_.feedUrl);
    if (transport == FeedTransport::refused) {
        deliver(CheckFailed{"The update feed's address is not a secure (HTTPS) address.",
                            "the feed address is refused (HTTPS only, plain HTTP only on this machine): " +
                                settings_.feedUrl});
        return;
    }
    platform::HttpFetcher& fetcher = platform::HttpFetcher::current();
    platform::HttpRequest request{settings_.feedUrl, transport == FeedTransport::loopbackHttp,
                                  settings_.timeoutSeconds, settings_.maxFeedBytes, userAgent(running_),
                                  [stopping = stopping_] { return stopping->load(); }};
    AppcastLimits limits;
    limits.maxBytes = settings_.maxFeedBytes;
    worker_ = std::thread([this, &fetcher, request = std::move(request), limits, deliver] {
        deliver(evaluateFeed(fetcher.fetch(request), running_, system_, limits));
    });
}

void UpdateChecker::report(const CheckOutcome& outcome) {
    checking_ = false;
    completion_(outcome, mode_);
}

}  // namespace vornix::updates
