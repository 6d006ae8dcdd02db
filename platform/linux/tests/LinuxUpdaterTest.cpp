#include "platform/linux/LinuxUpdater.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/doubles/FakeWorkspace.hpp"
#include "platform/doubles/MainQueueWaiting.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/doubles/RecordingAlerts.hpp"
#include "platform/linux/tests/BuiltHttpFetcherModule.hpp"
#include "platform/linux/tests/LoopbackHttpServer.hpp"

// The Linux host's updater as the application uses it: installed as the updater port, reading a
// feed served on this machine, answering through the alert and workspace ports.
namespace {

using namespace vornix::platform;
using vornix::host::WebEndpoints;
using vornix::platform::doubles::FakeWorkspace;
using vornix::platform::doubles::ManualMainQueue;
using vornix::platform::doubles::RecordingAlerts;
using vornix::platform::doubles::runUntil;
using vornix::platform::linux::LinuxUpdater;
using vornix::platform::linux::linuxSystemVersion;
using vornix::platform::linux::testing::builtHttpFetcherModule;
using vornix::platform::linux::testing::LoopbackHttpServer;

const char* const newerFeed = R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
  <channel>
    <title>Vornix OS</title>
    <item>
      <title>Vornix OS 7.1</title>
      <sparkle:version>7100</sparkle:version>
      <sparkle:shortVersionString>7.1</sparkle:shortVersionString>
      <sparkle:releaseNotesLink>https://updates.vornix.com/notes/7.1.html</sparkle:releaseNotesLink>
      <enclosure url="https://updates.vornix.com/Vornix-OS-7.1.zip" length="1024" type="application/octet-stream"/>
    </item>
  </channel>
</rss>)";

class LinuxUpdaterTest : public ::testing::Test {
protected:
    LinuxUpdaterTest() {
        ::unsetenv("VORNIX_UPDATE_FEED_URL");
        ::unsetenv("VORNIX_UPDATE_TIMEOUT");
    }
    ~LinuxUpdaterTest() override {
        ::unsetenv("VORNIX_UPDATE_FEED_URL");
        ::unsetenv("VORNIX_UPDATE_TIMEOUT");
    }

    void checkAndWait(LinuxUpdater& linuxUpdater) {
        Updater::current().checkForUpdates();
        EXPECT_TRUE(runUntil(queue, [&] { return !linuxUpdater.updater().isChecking(); }));
    }

    ManualMainQueue queue;
    ScopedPort<MainQueue> queuePort{&queue};
    RecordingAlerts alerts;
    ScopedPort<Alerts> alertsPort{&alerts};
    FakeWorkspace workspace;
    ScopedPort<Workspace> workspacePort{&workspace};
    LoopbackHttpServer server;
};

TEST_F(LinuxUpdaterTest, InstallsItselfAsTheUpdaterWhileItLives) {
    {
        LinuxUpdater linuxUpdater(WebEndpoints{}, nullptr, builtHttpFetcherModule());
        EXPECT_EQ(Updater::installed(), &linuxUpdater.updater());
        EXPECT_NE(HttpFetcher::installed(), nullptr);
        EXPECT_NE(Notifications::installed(), nullptr);
    }
    EXPECT_EQ(Updater::installed(), nullptr);
    EXPECT_EQ(HttpFetcher::installed(), nullptr);
}

TEST_F(LinuxUpdaterTest, ReadsTheFeedConfiguredWithTheOtherWebEndpoints) {
    server.serve("/appcast.xml", newerFeed);
    WebEndpoints endpoints;
    endpoints.updateFeed = server.url("/appcast.xml");
    LinuxUpdater linuxUpdater(endpoints, nullptr, builtHttpFetcherModule());
    checkAndWait(linuxUpdater);
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].messageText, "Vornix OS 7.1 is available");
    EXPECT_EQ(workspace.opened(), (std::vector<std::string>{"https://updates.vornix.com/Vornix-OS-7.1.zip"}));
}

TEST_F(LinuxUpdaterTest, TheEnvironmentPointsItAtAServedFeed) {
    server.serve("/staging/appcast.xml", newerFeed);
    ::setenv("VORNIX_UPDATE_FEED_URL", server.url("/staging/appcast.xml").c_str(), 1);
    LinuxUpdater linuxUpdater(WebEndpoints{}, nullptr, builtHttpFetcherModule());
    alerts.answerWithButton(1);
    checkAndWait(linuxUpdater);
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].buttons, (std::vector<std::string>{"Download", "Release Notes", "Later"}));
    EXPECT_EQ(workspace.opened(), (std::vector<std::string>{"https://updates.vornix.com/notes/7.1.html"}));
}

TEST_F(LinuxUpdaterTest, AShortTimeOutFromTheEnvironmentEndsACheckOnASlowServer) {
    server.route("/appcast.xml", LoopbackHttpServer::Route::held());
    ::setenv("VORNIX_UPDATE_FEED_URL", server.url("/appcast.xml").c_str(), 1);
    ::setenv("VORNIX_UPDATE_TIMEOUT", "0.3", 1);
    LinuxUpdater linuxUpdater(WebEndpoints{}, nullptr, builtHttpFetcherModule());
    ::testing::internal::CaptureStdout();
    checkAndWait(linuxUpdater);
    const std::string printed = ::testing::internal::GetCapturedStdout();
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].informativeText, "The update server did not answer in time. Try again later.");
    EXPECT_EQ(printed.rfind("Update check failed: ", 0), 0u) << printed;
}

TEST_F(LinuxUpdaterTest, AFeedThatCannotBeFetchedSaysSo) {
    ::setenv("VORNIX_UPDATE_FEED_URL", server.url("/missing.xml").c_str(), 1);
    LinuxUpdater linuxUpdater(WebEndpoints{}, nullptr, builtHttpFetcherModule());
    ::testing::internal::CaptureStdout();
    checkAndWait(linuxUpdater);
    ::testing::internal::GetCapturedStdout();
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].messageText, "Vornix OS could not check for updates");
    EXPECT_EQ(alerts.shown()[0].informativeText, "The update server answered with an error (HTTP 404).");
}

TEST(LinuxSystemVersion, IsTheKernelRelease) {
    EXPECT_GT(linuxSystemVersion(), *vornix::updates::Version::parse("2.6"));
}

}  // namespace
