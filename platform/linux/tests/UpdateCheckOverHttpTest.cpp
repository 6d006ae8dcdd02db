#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/doubles/MainQueueWaiting.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/linux/tests/BuiltHttpFetcherModule.hpp"
#include "platform/linux/tests/LoopbackHttpServer.hpp"
#include "updates/UpdateChecker.hpp"

// Update checks end to end on this machine: the HTTP fetcher module against a local server
// serving appcasts, the checker reading them, its report on a manual main queue.
namespace {

using vornix::platform::HttpFetcher;
using vornix::platform::MainQueue;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::ManualMainQueue;
using vornix::platform::doubles::runUntil;
using vornix::platform::linux::testing::builtHttpFetcherModule;
using vornix::platform::linux::testing::LoopbackHttpServer;
using vornix::updates::CheckFailed;
using vornix::updates::CheckMode;
using vornix::updates::CheckOutcome;
using vornix::updates::UpdateAvailable;
using vornix::updates::UpdateChecker;
using vornix::updates::UpdateSettings;
using vornix::updates::UpToDate;
using vornix::updates::Version;

std::string item(const std::string& version, const std::string& minimumSystem = "") {
    return "<item><title>Version " + version + "</title><sparkle:version>" + version +
           "</sparkle:version><sparkle:shortVersionString>" + version + "</sparkle:shortVersionString>" +
           (minimumSystem.empty() ? "" : "<sparkle:minimumSystemVersion>" + minimumSystem + "</sparkle:minimumSystemVersion>") +
           "<sparkle:releaseNotesLink>https://example.com/notes/" + version +
           "</sparkle:releaseNotesLink><enclosure url=\"https://example.com/Vornix-" + version +
           ".zip\" length=\"1\" type=\"application/octet-stream\"/></item>";
}

std::string appcast(const std::string& items) {
    return R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
<channel><title>Vornix OS</title>)" + items + "</channel></rss>";
}

class UpdateCheckOverHttpTest : public ::testing::Test {
protected:
    CheckOutcome check(const std::string& path, double timeoutSeconds = 5.0, std::size_t maxFeedBytes = 64 * 1024) {
        UpdateSettings settings{server.url(path), timeoutSeconds, maxFeedBytes};
        std::optional<CheckOutcome> outcome;
        UpdateChecker checker(settings, *Version::parse("1.0.0"), *Version::parse("6.1"),
                              [&](const CheckOutcome& found, CheckMode) { outcome = found; });
        checker.start(CheckMode::interactive);
        EXPECT_TRUE(runUntil(queue, [&] { return outcome.has_value(); }));
        return outcome.value_or(CheckFailed{"no report", ""});
    }

    static std::string versionOffered(const CheckOutcome& outcome) {
        const auto* available = std::get_if<UpdateAvailable>(&outcome);
        return available ? available->item.version : "nothing";
    }

    static std::string failureReason(const CheckOutcome& outcome) {
        const auto* failed = std::get_if<CheckFailed>(&outcome);
        return failed ? failed->reason : "no failure";
    }

    ManualMainQueue queue;
    ScopedPort<MainQueue> queuePort{&queue};
    std::unique_ptr<HttpFetcher> fetcher = builtHttpFetcherModule();
    ScopedPort<HttpFetcher> fetcherPort{fetcher.get()};
    LoopbackHttpServer server;
};

TEST_F(UpdateCheckOverHttpTest, AServedNewerVersionIsOffered) {
    server.serve("/appcast.xml", appcast(item("1.1.0")));
    const auto outcome = check("/appcast.xml");
    EXPECT_EQ(versionOffered(outcome), "1.1.0");
    ASSERT_TRUE(std::holds_alternative<UpdateAvailable>(outcome));
    EXPECT_EQ(std::get<UpdateAvailable>(outcome).item.enclosureUrl, "https://example.com/Vornix-1.1.0.zip");
    EXPECT_EQ(std::get<UpdateAvailable>(outcome).item.releaseNotesLink, "https://example.com/notes/1.1.0");
}

TEST_F(UpdateCheckOverHttpTest, TheSameVersionIsUpToDate) {
    server.serve("/appcast.xml", appcast(item("1.0.0")));
    EXPECT_TRUE(std::holds_alternative<UpToDate>(check("/appcast.xml")));
}

TEST_F(UpdateCheckOverHttpTest, AnOlderVersionIsUpToDate) {
    server.serve("/appcast.xml", appcast(item("0.9.12")));
    EXPECT_TRUE(std::holds_alternative<UpToDate>(check("/appcast.xml")));
}

TEST_F(UpdateCheckOverHttpTest, TheNewestOfSeveralItemsOutOfOrderIsOffered) {
    server.serve("/appcast.xml", appcast(item("1.2.0") + item("1.10.0") + item("0.9") + item("1.9.3") + item("1.10.0b2")));
    EXPECT_EQ(versionOffered(check("/appcast.xml")), "1.10.0");
}

TEST_F(UpdateCheckOverHttpTest, ItemsForANewerSystemAreSkipped) {
    server.serve("/appcast.xml", appcast(item("3.0", "99.0") + item("2.0", "6.0")));
    EXPECT_EQ(versionOffered(check("/appcast.xml")), "2.0");
}

TEST_F(UpdateCheckOverHttpTest, MalformedXmlSaysTheFeedCouldNotBeRead) {
    server.serve("/appcast.xml", appcast(item("2.0")).substr(0, 200));
    EXPECT_EQ(failureReason(check("/appcast.xml")), "The update information from the server could not be read.");
}

TEST_F(UpdateCheckOverHttpTest, AnEmptyChannelIsUpToDate) {
    server.serve("/appcast.xml", appcast(""));
    EXPECT_TRUE(std::holds_alternative<UpToDate>(check("/appcast.xml")));
}

TEST_F(UpdateCheckOverHttpTest, AHugeFeedIsRefusedAtTheBound) {
    std::string items;
    while (items.size() < 256 * 1024) {
        items += item("0.1");
    }
    server.serve("/appcast.xml", appcast(items + item("9.0")));
    EXPECT_EQ(failureReason(check("/appcast.xml", 5.0, 64 * 1024)),
              "The update information from the server is larger than expected.");
}

TEST_F(UpdateCheckOverHttpTest, AnEndlessFeedIsRefusedAtTheBound) {
    server.route("/appcast.xml", LoopbackHttpServer::Route::endlessBody());
    EXPECT_EQ(failureReason(check("/appcast.xml", 5.0, 64 * 1024)),
              "The update information from the server is larger than expected.");
}

TEST_F(UpdateCheckOverHttpTest, ASlowServerPastTheTimeOutSaysItDidNotAnswerInTime) {
    server.route("/appcast.xml", LoopbackHttpServer::Route::held());
    EXPECT_EQ(failureReason(check("/appcast.xml", 0.3)), "The update server did not answer in time. Try again later.");
}

TEST_F(UpdateCheckOverHttpTest, AMissingFeedSaysTheServerAnsweredWithAnError) {
    EXPECT_EQ(failureReason(check("/no-such-appcast.xml")), "The update server answered with an error (HTTP 404).");
}

TEST_F(UpdateCheckOverHttpTest, ARedirectToPlainHttpIsRefused) {
    server.serve("/elsewhere.xml", appcast(item("2.0")));
    server.route("/appcast.xml", {301, {{"Location", server.url("/elsewhere.xml")}}, ""});
    EXPECT_EQ(failureReason(check("/appcast.xml")), "The update server pointed to an address that is not secure.");
}

}  // namespace
