#include "updates/FeedEvaluation.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::platform::HttpFailure;
using vornix::platform::HttpResponse;
using vornix::updates::CheckFailed;
using vornix::updates::evaluateFeed;
using vornix::updates::UpdateAvailable;
using vornix::updates::UpToDate;
using vornix::updates::Version;

const Version running = *Version::parse("1.0.0");
const Version system = *Version::parse("6.1");

HttpResponse ok(std::string body) { return {HttpFailure::none, 200, std::move(body), ""}; }

std::string feedWith(const std::string& version) {
    return R"(<rss xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>
      <sparkle:version>)" + version + R"(</sparkle:version><enclosure url="https://e.com/x.zip"/></item></channel></rss>)";
}

TEST(FeedEvaluation, ANewerReleaseIsAvailable) {
    const auto outcome = evaluateFeed(ok(feedWith("1.1")), running, system);
    ASSERT_TRUE(std::holds_alternative<UpdateAvailable>(outcome));
    EXPECT_EQ(std::get<UpdateAvailable>(outcome).item.version, "1.1");
}

TEST(FeedEvaluation, TheSameReleaseIsUpToDate) {
    EXPECT_TRUE(std::holds_alternative<UpToDate>(evaluateFeed(ok(feedWith("1.0")), running, system)));
}

TEST(FeedEvaluation, AnHttpErrorStatusFailsNamingTheStatus) {
    const auto outcome = evaluateFeed({HttpFailure::none, 404, "Not Found", ""}, running, system);
    ASSERT_TRUE(std::holds_alternative<CheckFailed>(outcome));
    EXPECT_EQ(std::get<CheckFailed>(outcome).reason, "The update server answered with an error (HTTP 404).");
    EXPECT_EQ(std::get<CheckFailed>(outcome).detail, "the server answered HTTP 404");
}

TEST(FeedEvaluation, AFeedThatCannotBeReadFailsInPlainWords) {
    const auto outcome = evaluateFeed(ok("<rss><channel>"), running, system);
    ASSERT_TRUE(std::holds_alternative<CheckFailed>(outcome));
    EXPECT_EQ(std::get<CheckFailed>(outcome).reason, "The update information from the server could not be read.");
    EXPECT_NE(std::get<CheckFailed>(outcome).detail.find("the feed could not be read: "), std::string::npos);
}

TEST(FeedEvaluation, EachFetchFailureHasItsOwnPlainWords) {
    const std::pair<HttpFailure, std::string> cases[] = {
        {HttpFailure::refused, "The update server pointed to an address that is not secure."},
        {HttpFailure::unreachable,
         "The update server could not be reached. Check your internet connection and try again."},
        {HttpFailure::untrusted, "The update server's identity could not be verified."},
        {HttpFailure::timedOut, "The update server did not answer in time. Try again later."},
        {HttpFailure::tooLarge, "The update information from the server is larger than expected."},
        {HttpFailure::other, "The update information could not be downloaded."},
    };
    for (const auto& [failure, words] : cases) {
        const auto outcome = evaluateFeed({failure, 0, "", "curl says no"}, running, system);
        ASSERT_TRUE(std::holds_alternative<CheckFailed>(outcome));
        EXPECT_EQ(std::get<CheckFailed>(outcome).reason, words);
        EXPECT_EQ(std::get<CheckFailed>(outcome).detail, "curl says no");
    }
}

TEST(FeedEvaluation, TheFeedBoundAppliesToTheBody) {
    vornix::updates::AppcastLimits limits;
    limits.maxBytes = 10;
    const auto outcome = evaluateFeed(ok(feedWith("1.1")), running, system, limits);
    ASSERT_TRUE(std::holds_alternative<CheckFailed>(outcome));
}

}  // namespace
