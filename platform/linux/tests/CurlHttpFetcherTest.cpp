#include "platform/linux/CurlHttpFetcher.hpp"

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "platform/linux/tests/LoopbackHttpServer.hpp"
#include "platform/linux/tests/SelfSignedTlsServer.hpp"

namespace {

using vornix::platform::HttpFailure;
using vornix::platform::HttpRequest;
using vornix::platform::linux::CurlHttpFetcher;
using vornix::platform::linux::testing::LoopbackHttpServer;
using vornix::platform::linux::testing::SelfSignedTlsServer;

HttpRequest plain(std::string url) {
    HttpRequest request;
    request.url = std::move(url);
    request.allowPlainHttp = true;
    request.timeoutSeconds = 5.0;
    request.maxBytes = 64 * 1024;
    request.userAgent = "Vornix OS/1.0.0";
    return request;
}

// A loopback port with nothing listening on it.
int closedPort() {
    const int probe = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ::bind(probe, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::getsockname(probe, reinterpret_cast<sockaddr*>(&address), &length);
    ::close(probe);
    return ntohs(address.sin_port);
}

TEST(CurlHttpFetcher, FetchesTheBodyAndStatus) {
    LoopbackHttpServer server;
    server.serve("/appcast.xml", "<rss/>");
    const auto response = CurlHttpFetcher().fetch(plain(server.url("/appcast.xml")));
    EXPECT_EQ(response.failure, HttpFailure::none) << response.detail;
    EXPECT_EQ(response.status, 200);
    EXPECT_EQ(response.body, "<rss/>");
}

TEST(CurlHttpFetcher, SendsTheUserAgent) {
    LoopbackHttpServer server;
    server.serve("/appcast.xml", "<rss/>");
    CurlHttpFetcher().fetch(plain(server.url("/appcast.xml")));
    ASSERT_EQ(server.requests().size(), 1u);
    EXPECT_NE(server.requests()[0].find("User-Agent: Vornix OS/1.0.0"), std::string::npos) << server.requests()[0];
}

TEST(CurlHttpFetcher, AnErrorStatusComesBackAsTheServersAnswer) {
    LoopbackHttpServer server;
    const auto response = CurlHttpFetcher().fetch(plain(server.url("/missing.xml")));
    EXPECT_EQ(response.failure, HttpFailure::none);
    EXPECT_EQ(response.status, 404);
}

TEST(CurlHttpFetcher, PlainHttpIsRefusedUnlessTheRequestAllowsIt) {
    LoopbackHttpServer server;
    server.serve("/appcast.xml", "<rss/>");
    HttpRequest request = plain(server.url("/appcast.xml"));
    request.allowPlainHttp = false;
    const auto response = CurlHttpFetcher().fetch(request);
    EXPECT_EQ(response.failure, HttpFailure::refused);
    EXPECT_TRUE(server.requests().empty());
}

TEST(CurlHttpFetcher, ARedirectToPlainHttpIsNotFollowed) {
    LoopbackHttpServer server;
    server.serve("/other.xml", "<rss/>");
    server.route("/appcast.xml", {302, {{"Location", server.url("/other.xml")}}, ""});
    const auto response = CurlHttpFetcher().fetch(plain(server.url("/appcast.xml")));
    EXPECT_EQ(response.failure, HttpFailure::refused) << response.detail;
    EXPECT_EQ(server.requests().size(), 1u);
}

TEST(CurlHttpFetcher, ASlowServerTimesOut) {
    LoopbackHttpServer server;
    server.route("/appcast.xml", LoopbackHttpServer::Route::held());
    HttpRequest request = plain(server.url("/appcast.xml"));
    request.timeoutSeconds = 0.3;
    const auto response = CurlHttpFetcher().fetch(request);
    EXPECT_EQ(response.failure, HttpFailure::timedOut) << response.detail;
}

TEST(CurlHttpFetcher, ACancelledRequestEndsBeforeItsTimeOut) {
    LoopbackHttpServer server;
    server.route("/appcast.xml", LoopbackHttpServer::Route::held());
    HttpRequest request = plain(server.url("/appcast.xml"));
    request.timeoutSeconds = 120.0;
    std::atomic<bool> cancelled{false};
    request.isCancelled = [&] { return cancelled.load(); };
    vornix::platform::HttpResponse response;
    std::thread fetch([&] { response = CurlHttpFetcher().fetch(request); });
    while (server.requests().empty()) {
        std::this_thread::yield();
    }
    cancelled = true;
    fetch.join();
    EXPECT_EQ(response.failure, HttpFailure::cancelled) << response.detail;
}

TEST(CurlHttpFetcher, ABodyAnnouncedLargerThanTheBoundIsRefused) {
    LoopbackHttpServer server;
    server.serve("/appcast.xml", std::string(200 * 1024, 'x'));
    const auto response = CurlHttpFetcher().fetch(plain(server.url("/appcast.xml")));
    EXPECT_EQ(response.failure, HttpFailure::tooLarge) << response.detail;
    EXPECT_TRUE(response.body.empty());
}

TEST(CurlHttpFetcher, AnEndlessBodyIsCutAtTheBound) {
    LoopbackHttpServer server;
    server.route("/appcast.xml", LoopbackHttpServer::Route::endlessBody());
    const auto response = CurlHttpFetcher().fetch(plain(server.url("/appcast.xml")));
    EXPECT_EQ(response.failure, HttpFailure::tooLarge) << response.detail;
}

TEST(CurlHttpFetcher, NoServerIsUnreachable) {
    const auto response = CurlHttpFetcher().fetch(plain("http://127.0.0.1:" + std::to_string(closedPort()) + "/a"));
    EXPECT_EQ(response.failure, HttpFailure::unreachable) << response.detail;
    EXPECT_FALSE(response.detail.empty());
}

TEST(CurlHttpFetcher, AServerCertificateThatDoesNotVerifyIsUntrusted) {
    SelfSignedTlsServer server;
    HttpRequest request = plain(server.url());
    request.allowPlainHttp = false;
    const auto response = CurlHttpFetcher().fetch(request);
    EXPECT_EQ(response.failure, HttpFailure::untrusted) << response.detail;
}

}  // namespace
