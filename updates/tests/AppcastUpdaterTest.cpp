#include "updates/AppcastUpdater.hpp"

#include <gtest/gtest.h>

#include "base/Version.hpp"
#include "platform/doubles/MainQueueWaiting.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/doubles/FakeWorkspace.hpp"
#include "platform/doubles/RecordingAlerts.hpp"
#include "platform/doubles/RecordingNotifications.hpp"
#include "platform/doubles/ScriptedHttpFetcher.hpp"

namespace {

using namespace vornix::platform;
using vornix::platform::doubles::FakeWorkspace;
using vornix::platform::doubles::ManualMainQueue;
using vornix::platform::doubles::RecordingAlerts;
using vornix::platform::doubles::RecordingNotifications;
using vornix::platform::doubles::runUntil;
using vornix::platform::doubles::ScriptedHttpFetcher;
using vornix::updates::AppcastUpdater;
using vornix::updates::UpdateSettings;
using vornix::updates::Version;

std::string feedOffering(const std::string& version, const std::string& download = "https://example.com/Vornix.zip",
                         const std::string& notes = "https://example.com/notes") {
    return R"(<rss xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>
      <sparkle:version>)" + version + "</sparkle:version>" +
           (notes.empty() ? "" : "<sparkle:releaseNotesLink>" + notes + "</sparkle:releaseNotesLink>") +
           "<enclosure url=\"" + download + "\"/></item></channel></rss>";
}

class NoDelegate : public UpdaterDelegate {
public:
    void updaterDidRelaunchApplication(Updater&) override {}
};

class AppcastUpdaterTest : public ::testing::Test {
protected:
    void serve(std::string body) { fetcher.respond({HttpFailure::none, 200, std::move(body), ""}); }

    // Runs the main queue until the check has been answered; returns what it printed.
    std::string finish() {
        ::testing::internal::CaptureStdout();
        const bool answered = runUntil(queue, [&] { return !updater.isChecking(); });
        std::string printed = ::testing::internal::GetCapturedStdout();
        EXPECT_TRUE(answered);
        return printed;
    }

    ManualMainQueue queue;
    ScopedPort<MainQueue> queuePort{&queue};
    ScriptedHttpFetcher fetcher;
    ScopedPort<HttpFetcher> fetcherPort{&fetcher};
    RecordingAlerts alerts;
    ScopedPort<Alerts> alertsPort{&alerts};
    FakeWorkspace workspace;
    ScopedPort<Workspace> workspacePort{&workspace};
    RecordingNotifications notifications;
    ScopedPort<Notifications> notificationsPort{&notifications};
    AppcastUpdater updater{UpdateSettings{"https://updates.example.com/appcast.xml"}, *Version::parse("1.0.0"),
                           *Version::parse("6.1")};
    ScopedPort<Updater> updaterPort{&updater};
};

TEST_F(AppcastUpdaterTest, CheckForUpdatesSaysWhenTheInstalledVersionIsTheNewest) {
    serve(feedOffering("1.0.0"));
    Updater::current().checkForUpdates();
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_EQ(finish(), "");
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].messageText, "Vornix OS is up to date");
    EXPECT_EQ(alerts.shown()[0].informativeText, "Version 1.0.0 is the newest version available.");
    EXPECT_TRUE(workspace.opened().empty());
}

TEST_F(AppcastUpdaterTest, CheckForUpdatesOffersANewerVersionAndDownloadOpensIt) {
    serve(feedOffering("1.2.0"));
    updater.checkForUpdates();
    finish();
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].messageText, "Vornix OS 1.2.0 is available");
    EXPECT_EQ(alerts.shown()[0].buttons, (std::vector<std::string>{"Download", "Release Notes", "Later"}));
    EXPECT_EQ(workspace.opened(), (std::vector<std::string>{"https://example.com/Vornix.zip"}));
}

TEST_F(AppcastUpdaterTest, ReleaseNotesOpensTheReleaseNotes) {
    serve(feedOffering("1.2.0"));
    alerts.answerWithButton(1);
    updater.checkForUpdates();
    finish();
    EXPECT_EQ(workspace.opened(), (std::vector<std::string>{"https://example.com/notes"}));
}

TEST_F(AppcastUpdaterTest, LaterOpensNothing) {
    serve(feedOffering("1.2.0"));
    alerts.answerWithButton(2);
    updater.checkForUpdates();
    finish();
    EXPECT_EQ(alerts.shown().size(), 1u);
    EXPECT_TRUE(workspace.opened().empty());
}

TEST_F(AppcastUpdaterTest, ADownloadThatIsNotAWebPageIsNotOpened) {
    serve(feedOffering("1.2.0", "file:///usr/bin/something"));
    updater.checkForUpdates();
    EXPECT_EQ(finish(), "The update feed's address is not a web page: file:///usr/bin/something\n");
    EXPECT_TRUE(workspace.opened().empty());
}

TEST_F(AppcastUpdaterTest, AFeedThatCannotBeFetchedGivesAnAlertInPlainWordsAndOneLine) {
    fetcher.respond({HttpFailure::unreachable, 0, "", "Could not resolve host: updates.example.com"});
    updater.checkForUpdates();
    EXPECT_EQ(finish(), "Update check failed: Could not resolve host: updates.example.com\n");
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].messageText, "Vornix OS could not check for updates");
    EXPECT_EQ(alerts.shown()[0].informativeText,
              "The update server could not be reached. Check your internet connection and try again.");
    EXPECT_EQ(alerts.shown()[0].alertStyle, AlertStyle::warning);
}

TEST_F(AppcastUpdaterTest, AFeedThatCannotBeReadGivesAnAlertThatSaysSo) {
    serve("<html><body>Maintenance</body></html>");
    updater.checkForUpdates();
    finish();
    ASSERT_EQ(alerts.shown().size(), 1u);
    EXPECT_EQ(alerts.shown()[0].informativeText, "The update information from the server could not be read.");
}

TEST_F(AppcastUpdaterTest, ABackgroundCheckIsSilentWhenUpToDateApartFromOneLine) {
    serve(feedOffering("0.9"));
    Updater::current().checkForUpdatesInBackground();
    EXPECT_EQ(finish(), "Update check: Vornix OS 1.0.0 is up to date\n");
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_TRUE(notifications.posted().empty());
}

TEST_F(AppcastUpdaterTest, ABackgroundCheckIsSilentWhenTheNetworkFailsApartFromOneLine) {
    fetcher.respond({HttpFailure::timedOut, 0, "", "Operation timed out after 30000 milliseconds"});
    updater.checkForUpdatesInBackground();
    EXPECT_EQ(finish(), "Update check failed: Operation timed out after 30000 milliseconds\n");
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_TRUE(notifications.posted().empty());
}

TEST_F(AppcastUpdaterTest, ABackgroundCheckOffersANewerVersionInANotification) {
    serve(feedOffering("1.2.0"));
    updater.checkForUpdatesInBackground();
    EXPECT_EQ(finish(), "Update check: version 1.2.0 is available\n");
    EXPECT_TRUE(alerts.shown().empty());
    ASSERT_EQ(notifications.posted().size(), 1u);
    EXPECT_EQ(notifications.posted()[0].notification.title, "Vornix OS 1.2.0 is available");
    EXPECT_TRUE(workspace.opened().empty());
}

TEST_F(AppcastUpdaterTest, ClickingTheNotificationOpensTheDownloadAndItsActionTheReleaseNotes) {
    serve(feedOffering("1.2.0"));
    updater.checkForUpdatesInBackground();
    finish();
    ASSERT_EQ(notifications.posted().size(), 1u);
    notifications.choose(0, "default");
    const auto& actions = notifications.posted()[0].notification.actions;
    ASSERT_EQ(actions.size(), 2u);
    notifications.choose(0, actions[1].key);
    EXPECT_EQ(workspace.opened(),
              (std::vector<std::string>{"https://example.com/Vornix.zip", "https://example.com/notes"}));
}

TEST_F(AppcastUpdaterTest, ASecondCheckWhileOneRunsShowsOneAnswer) {
    serve(feedOffering("1.2.0"));
    fetcher.hold();
    updater.checkForUpdatesInBackground();
    updater.checkForUpdates();
    updater.checkForUpdates();
    fetcher.release();
    finish();
    EXPECT_EQ(fetcher.requests().size(), 1u);
    EXPECT_EQ(alerts.shown().size(), 1u);
    EXPECT_TRUE(notifications.posted().empty());
}

TEST_F(AppcastUpdaterTest, KeepsItsDelegateAndNeverRelaunches) {
    NoDelegate delegate;
    EXPECT_EQ(updater.delegate(), nullptr);
    updater.setDelegate(&delegate);
    EXPECT_EQ(updater.delegate(), &delegate);
}

TEST(AppcastUpdaterVersion, TheHostsOwnVersionReadsAsAVersion) {
    EXPECT_TRUE(Version::parse(vornix::base::hostVersion()).has_value());
}

}  // namespace
