#include "updates/UpdateChecker.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "platform/doubles/MainQueueWaiting.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/doubles/ScriptedHttpFetcher.hpp"

namespace {

using vornix::platform::HttpFailure;
using vornix::platform::HttpFetcher;
using vornix::platform::MainQueue;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::ManualMainQueue;
using vornix::platform::doubles::runUntil;
using vornix::platform::doubles::ScriptedHttpFetcher;
using vornix::updates::CheckFailed;
using vornix::updates::CheckMode;
using vornix::updates::CheckOutcome;
using vornix::updates::UpdateAvailable;
using vornix::updates::UpdateChecker;
using vornix::updates::UpdateSettings;
using vornix::updates::Version;

const char* const newerFeed = R"(<rss xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel>
  <item><sparkle:version>2.0</sparkle:version><enclosure url="https://e.com/2.0.zip"/></item></channel></rss>)";

struct Report {
    CheckOutcome outcome;
    CheckMode mode;
};

class UpdateCheckerTest : public ::testing::Test {
protected:
    UpdateCheckerTest() { fetcher.respond({HttpFailure::none, 200, newerFeed, ""}); }

    UpdateChecker makeChecker(std::string url = "https://updates.example.com/appcast.xml") {
        UpdateSettings settings{std::move(url), 2.5, 12345};
        return UpdateChecker(settings, *Version::parse("1.0.0"), *Version::parse("6.1"),
                             [this](const CheckOutcome& outcome, CheckMode mode) { reports.push_back({outcome, mode}); });
    }

    bool waitForReports(std::size_t count) {
        return runUntil(queue, [&] { return reports.size() >= count; });
    }

    ManualMainQueue queue;
    ScopedPort<MainQueue> queuePort{&queue};
    ScriptedHttpFetcher fetcher;
    ScopedPort<HttpFetcher> fetcherPort{&fetcher};
    std::vector<Report> reports;
};

TEST_F(UpdateCheckerTest, FetchesTheConfiguredFeedWithItsBounds) {
    UpdateChecker checker = makeChecker();
    checker.start(CheckMode::background);
    ASSERT_TRUE(waitForReports(1));
    const auto requests = fetcher.requests();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].url, "https://updates.example.com/appcast.xml");
    EXPECT_FALSE(requests[0].allowPlainHttp);
    EXPECT_EQ(requests[0].timeoutSeconds, 2.5);
    EXPECT_EQ(requests[0].maxBytes, 12345u);
    EXPECT_EQ(requests[0].userAgent, "Vornix OS/1.0.0");
}

TEST_F(UpdateCheckerTest, ReportsOnTheMainQueueWhatTheFeedOffers) {
    UpdateChecker checker = makeChecker();
    checker.start(CheckMode::interactive);
    EXPECT_TRUE(checker.isChecking());
    EXPECT_TRUE(reports.empty());
    ASSERT_TRUE(waitForReports(1));
    ASSERT_TRUE(std::holds_alternative<UpdateAvailable>(reports[0].outcome));
    EXPECT_EQ(std::get<UpdateAvailable>(reports[0].outcome).item.version, "2.0");
    EXPECT_EQ(reports[0].mode, CheckMode::interactive);
    EXPECT_FALSE(checker.isChecking());
}

TEST_F(UpdateCheckerTest, TheFetchDoesNotBlockTheCaller) {
    fetcher.hold();
    UpdateChecker checker = makeChecker();
    checker.start(CheckMode::interactive);
    ASSERT_TRUE(fetcher.waitForRequests(1));
    queue.runReady();
    EXPECT_TRUE(reports.empty());
    fetcher.release();
    ASSERT_TRUE(waitForReports(1));
}

TEST_F(UpdateCheckerTest, PlainHttpIsAllowedForALoopbackFeed) {
    UpdateChecker checker = makeChecker("http://127.0.0.1:8080/appcast.xml");
    checker.start(CheckMode::background);
    ASSERT_TRUE(waitForReports(1));
    EXPECT_TRUE(fetcher.requests().at(0).allowPlainHttp);
}

TEST_F(UpdateCheckerTest, APlainHttpFeedElsewhereIsRefusedWithoutFetching) {
    UpdateChecker checker = makeChecker("http://updates.example.com/appcast.xml");
    checker.start(CheckMode::interactive);
    EXPECT_TRUE(reports.empty());
    ASSERT_TRUE(waitForReports(1));
    EXPECT_TRUE(fetcher.requests().empty());
    ASSERT_TRUE(std::holds_alternative<CheckFailed>(reports[0].outcome));
    EXPECT_EQ(std::get<CheckFailed>(reports[0].outcome).reason,
              "The update feed's address is not a secure (HTTPS) address.");
}

TEST_F(UpdateCheckerTest, ASecondCheckWhileOneRunsDoesNotStartAnother) {
    fetcher.hold();
    UpdateChecker checker = makeChecker();
    checker.start(CheckMode::background);
    checker.start(CheckMode::background);
    ASSERT_TRUE(fetcher.waitForRequests(1));
    fetcher.release();
    ASSERT_TRUE(waitForReports(1));
    queue.runReady();
    EXPECT_EQ(fetcher.requests().size(), 1u);
    EXPECT_EQ(reports.size(), 1u);
}

TEST_F(UpdateCheckerTest, AskingWhileABackgroundCheckRunsGetsThatCheckAnsweredToTheUser) {
    fetcher.hold();
    UpdateChecker checker = makeChecker();
    checker.start(CheckMode::background);
    checker.start(CheckMode::interactive);
    fetcher.release();
    ASSERT_TRUE(waitForReports(1));
    EXPECT_EQ(reports[0].mode, CheckMode::interactive);
    EXPECT_EQ(fetcher.requests().size(), 1u);
}

TEST_F(UpdateCheckerTest, ABackgroundRequestDoesNotSilenceACheckTheUserAskedFor) {
    fetcher.hold();
    UpdateChecker checker = makeChecker();
    checker.start(CheckMode::interactive);
    checker.start(CheckMode::background);
    fetcher.release();
    ASSERT_TRUE(waitForReports(1));
    EXPECT_EQ(reports[0].mode, CheckMode::interactive);
}

TEST_F(UpdateCheckerTest, ACheckAfterTheLastOneFinishedFetchesAgain) {
    UpdateChecker checker = makeChecker();
    checker.start(CheckMode::background);
    ASSERT_TRUE(waitForReports(1));
    checker.start(CheckMode::interactive);
    ASSERT_TRUE(waitForReports(2));
    EXPECT_EQ(fetcher.requests().size(), 2u);
    EXPECT_EQ(reports[1].mode, CheckMode::interactive);
}

TEST_F(UpdateCheckerTest, ARequestIsCancelledOnlyOnceTheCheckerIsGoing) {
    fetcher.hold();
    std::optional<UpdateChecker> checker;
    checker.emplace(UpdateSettings{"https://updates.example.com/appcast.xml"}, *Version::parse("1.0.0"),
                    *Version::parse("6.1"), [](const CheckOutcome&, CheckMode) {});
    checker->start(CheckMode::background);
    ASSERT_TRUE(fetcher.waitForRequests(1));
    const auto request = fetcher.requests().at(0);
    ASSERT_TRUE(request.isCancelled);
    EXPECT_FALSE(request.isCancelled());
    checker.reset();  // returns only once the held fetch has seen the cancellation
    EXPECT_TRUE(request.isCancelled());
}

TEST_F(UpdateCheckerTest, NoReportArrivesAfterTheCheckerIsGone) {
    {
        UpdateChecker checker = makeChecker();
        checker.start(CheckMode::background);
        ASSERT_TRUE(fetcher.waitForRequests(1));
    }
    queue.runReady();
    EXPECT_TRUE(reports.empty());
}

}  // namespace
