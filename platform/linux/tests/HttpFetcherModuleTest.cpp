#include "platform/linux/HttpFetcherModule.hpp"

#include <gtest/gtest.h>

#include <thread>

#include "platform/doubles/TemporaryFolder.hpp"
#include "platform/linux/tests/BuiltHttpFetcherModule.hpp"
#include "platform/linux/tests/LoopbackHttpServer.hpp"

namespace {

using vornix::platform::HttpFailure;
using vornix::platform::HttpRequest;
using vornix::platform::HttpResponse;
using vornix::platform::doubles::TemporaryFolder;
using vornix::platform::linux::HttpFetcherModule;
using vornix::platform::linux::testing::builtHttpFetcherModule;
using vornix::platform::linux::testing::LoopbackHttpServer;

HttpRequest plain(std::string url) {
    HttpRequest request;
    request.url = std::move(url);
    request.allowPlainHttp = true;
    request.timeoutSeconds = 5.0;
    return request;
}

TEST(HttpFetcherModule, TheBuiltModuleFetchesTheBodyAndStatus) {
    LoopbackHttpServer server;
    server.serve("/appcast.xml", "<rss/>");
    const HttpResponse response = builtHttpFetcherModule()->fetch(plain(server.url("/appcast.xml")));
    EXPECT_EQ(response.failure, HttpFailure::none) << response.detail;
    EXPECT_EQ(response.status, 200);
    EXPECT_EQ(response.body, "<rss/>");
}

TEST(HttpFetcherModule, FirstFetchesFromTwoThreadsAtOnceBothGetTheirAnswer) {
    LoopbackHttpServer server;
    server.serve("/a", "first");
    server.serve("/b", "second");
    const auto module = builtHttpFetcherModule();
    HttpResponse first;
    HttpResponse second;
    std::thread other([&] { second = module->fetch(plain(server.url("/b"))); });
    first = module->fetch(plain(server.url("/a")));
    other.join();
    EXPECT_EQ(first.body, "first");
    EXPECT_EQ(second.body, "second");
}

TEST(HttpFetcherModule, AMissingModuleFailsEveryFetchAndSaysWhichFile) {
    TemporaryFolder folder;
    const auto file = folder.path() / "vornix-http-fetcher.so";
    HttpFetcherModule module(file);
    for (int attempt = 0; attempt < 2; ++attempt) {
        const HttpResponse response = module.fetch(plain("http://127.0.0.1:1/appcast.xml"));
        EXPECT_EQ(response.failure, HttpFailure::other);
        EXPECT_EQ(response.status, 0);
        EXPECT_EQ(response.body, "");
        EXPECT_NE(response.detail.find("the HTTP module could not be loaded"), std::string::npos) << response.detail;
        EXPECT_NE(response.detail.find(file.string()), std::string::npos) << response.detail;
    }
}

TEST(HttpFetcherModule, AFileThatIsNoModuleFailsTheFetch) {
    TemporaryFolder folder;
    const auto file = folder.write("vornix-http-fetcher.so", "not a shared object\n");
    const HttpResponse response = HttpFetcherModule(file).fetch(plain("http://127.0.0.1:1/appcast.xml"));
    EXPECT_EQ(response.failure, HttpFailure::other);
    EXPECT_NE(response.detail.find("the HTTP module could not be loaded"), std::string::npos) << response.detail;
}

TEST(HttpFetcherModule, ALibraryWithoutTheEntryPointFailsTheFetch) {
    const HttpResponse response = HttpFetcherModule("libm.so.6").fetch(plain("http://127.0.0.1:1/appcast.xml"));
    EXPECT_EQ(response.failure, HttpFailure::other);
    EXPECT_EQ(response.detail, "the HTTP module libm.so.6 has no vornix_http_fetcher_make");
}

}  // namespace
