#include "updates/FeedAddress.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::updates::FeedTransport;
using vornix::updates::feedTransport;
using vornix::updates::isLoopbackHost;
using vornix::updates::isWebPage;

TEST(FeedAddress, HttpsIsFetchedOverHttps) {
    EXPECT_EQ(feedTransport("https://updates.example.com/appcast.xml"), FeedTransport::https);
    EXPECT_EQ(feedTransport("HTTPS://updates.example.com:8443/appcast.xml"), FeedTransport::https);
}

TEST(FeedAddress, PlainHttpIsAcceptedOnlyForALoopbackAddress) {
    EXPECT_EQ(feedTransport("http://127.0.0.1:8080/appcast.xml"), FeedTransport::loopbackHttp);
    EXPECT_EQ(feedTransport("http://127.1.2.3/appcast.xml"), FeedTransport::loopbackHttp);
    EXPECT_EQ(feedTransport("http://localhost:9/a"), FeedTransport::loopbackHttp);
    EXPECT_EQ(feedTransport("http://[::1]:8080/a"), FeedTransport::loopbackHttp);
    EXPECT_EQ(feedTransport("http://127.0.0.1"), FeedTransport::loopbackHttp);
    EXPECT_EQ(feedTransport("http://updates.example.com/appcast.xml"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("http://10.0.0.1/appcast.xml"), FeedTransport::refused);
}

TEST(FeedAddress, HostsThatOnlyLookLikeLoopbackAreRefused) {
    EXPECT_EQ(feedTransport("http://127.0.0.1.example.com/a"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("http://localhost.example.com/a"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("http://127.0.0.1@example.com/a"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("http://127.0.0.1\\@example.com/a"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("http://127.0.0.1 @example.com/a"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("http://example.com#@127.0.0.1/"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("http://0177.0.0.1/a"), FeedTransport::refused);
}

TEST(FeedAddress, OtherSchemesAndNonUrlsAreRefused) {
    EXPECT_EQ(feedTransport("file:///etc/appcast.xml"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("ftp://127.0.0.1/appcast.xml"), FeedTransport::refused);
    EXPECT_EQ(feedTransport("appcast.xml"), FeedTransport::refused);
    EXPECT_EQ(feedTransport(""), FeedTransport::refused);
    EXPECT_EQ(feedTransport("https://"), FeedTransport::refused);
}

TEST(FeedAddress, LoopbackHostsAreTheLoopbackRangeLocalhostAndIpv6One) {
    EXPECT_TRUE(isLoopbackHost("127.0.0.1"));
    EXPECT_TRUE(isLoopbackHost("127.255.255.254"));
    EXPECT_TRUE(isLoopbackHost("LOCALHOST"));
    EXPECT_TRUE(isLoopbackHost("::1"));
    EXPECT_FALSE(isLoopbackHost("127.0.0"));
    EXPECT_FALSE(isLoopbackHost("127.0.0.256"));
    EXPECT_FALSE(isLoopbackHost("127.0.0.1.2"));
    EXPECT_FALSE(isLoopbackHost("128.0.0.1"));
    EXPECT_FALSE(isLoopbackHost("::2"));
    EXPECT_FALSE(isLoopbackHost(""));
}

TEST(FeedAddress, OnlyHttpAndHttpsAddressesAreWebPages) {
    EXPECT_TRUE(isWebPage("https://example.com/Vornix-1.2.zip"));
    EXPECT_TRUE(isWebPage("HTTP://example.com/notes"));
    EXPECT_FALSE(isWebPage("file:///etc/passwd"));
    EXPECT_FALSE(isWebPage("javascript:alert(1)"));
    EXPECT_FALSE(isWebPage("vornix-for-developers://"));
    EXPECT_FALSE(isWebPage("https://"));
    EXPECT_FALSE(isWebPage("not a url"));
    EXPECT_FALSE(isWebPage(""));
}

}  // namespace
