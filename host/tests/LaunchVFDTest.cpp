#include <gtest/gtest.h>

#include "host/ContentView.hpp"
#include "host/HostingController.hpp"
#include "host/WebEndpoints.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/CountingUpdater.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/FakeWorkspace.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/doubles/RecordingAlerts.hpp"

namespace {

using namespace vornix;
using host::ContentView;
using host::HostingController;
using platform::ScopedPort;
using Strings = std::vector<std::string>;

class LaunchVFDTest : public testing::Test {
protected:
    // Clicks a button of the popover and returns what was written to standard output meanwhile.
    std::string click(const std::string& hoverId) {
        testing::internal::CaptureStdout();
        view.click(hoverId);
        return testing::internal::GetCapturedStdout();
    }

    vornix::launch_agent::testing::LaunchControlTestHome home;
    platform::doubles::ManualMainQueue queue;
    ScopedPort<platform::MainQueue> mainQueue{&queue};
    platform::doubles::FakeWorkspace workspace;
    ScopedPort<platform::Workspace> workspacePort{&workspace};
    platform::doubles::RecordingAlerts alerts;
    ScopedPort<platform::Alerts> alertsPort{&alerts};
    platform::doubles::FakePopoverView view;
    ContentView root;
    HostingController controller{root, view};
};

TEST_F(LaunchVFDTest, TheCompanionURLIsItsSchemeWithNothingAfterTheSeparator) {
    auto companion = url::URL::parse(ContentView::companionURL);
    ASSERT_TRUE(companion.has_value());
    EXPECT_EQ(companion->absoluteString(), "vornix-for-developers://");
    EXPECT_EQ(companion->scheme(), "vornix-for-developers");
}

TEST_F(LaunchVFDTest, AnInstalledCompanionIsStartedByOpeningItsApplication) {
    workspace.installApplication("vornix-for-developers",
                                 *url::URL::parse("file:///Applications/Vornix%20for%20Developers.app/"));
    EXPECT_EQ(click("launch"), "");
    EXPECT_EQ(workspace.opened(), (Strings{"file:///Applications/Vornix%20for%20Developers.app/"}));
    EXPECT_TRUE(alerts.shown().empty());
}

TEST_F(LaunchVFDTest, WithTheCompanionAbsentFailureToLaunchIsWrittenAndTheNotDetectedAlertShown) {
    alerts.answerWithButton(1);
    EXPECT_EQ(click("launch"), "Failure to Launch\n");
    ASSERT_EQ(alerts.shown().size(), 1u);
    const platform::Alert& alert = alerts.shown()[0];
    EXPECT_EQ(alert.alertStyle, platform::AlertStyle::warning);
    EXPECT_EQ(static_cast<int>(alert.alertStyle), 0);
    EXPECT_EQ(alert.messageText, "Not Detected");
    EXPECT_EQ(alert.informativeText, "Please make sure Vornix for Developers is installed on your machine");
    EXPECT_EQ(alert.buttons, (Strings{"Install", "Close"}));
}

TEST_F(LaunchVFDTest, InstallOpensTheInstallPage) {
    alerts.answerWithButton(0);
    click("launch");
    EXPECT_EQ(workspace.opened(), (Strings{"https://vornix.com/install"}));
}

TEST_F(LaunchVFDTest, CloseDoesNothingFurther) {
    alerts.answerWithButton(1);
    EXPECT_EQ(click("launch"), "Failure to Launch\n");
    EXPECT_TRUE(workspace.opened().empty());
    EXPECT_EQ(alerts.shown().size(), 1u);
}

TEST_F(LaunchVFDTest, TheInstallPageIsAnHttpsPageAtInstallOnTheProductsSite) {
    auto page = url::URL::parse(host::WebEndpoints{}.installPage);
    ASSERT_TRUE(page.has_value());
    EXPECT_EQ(page->scheme(), "https");
    EXPECT_EQ(page->host(), "vornix.com");
    EXPECT_EQ(page->path(), "/install");
}

TEST_F(LaunchVFDTest, ACompanionURLThatCannotBeFormedIsReportedAndNothingElseHappens) {
    testing::internal::CaptureStdout();
    root.launchVFD("not a url", "https://vornix.com/install");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "There was an error launching VFD\n");
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_TRUE(workspace.opened().empty());
}

TEST_F(LaunchVFDTest, AnInstallPageThatCannotBeFormedIsReportedAfterInstall) {
    alerts.answerWithButton(0);
    testing::internal::CaptureStdout();
    root.launchVFD(ContentView::companionURL, "https://vornix.com/in stall");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Failure to Launch\nThere was an error launching the install site\n");
    EXPECT_TRUE(workspace.opened().empty());
}

TEST_F(LaunchVFDTest, CheckForUpdatesAsksTheSharedUpdater) {
    platform::doubles::CountingUpdater updater;
    ScopedPort<platform::Updater> updaterPort(&updater);
    view.click("updates");
    EXPECT_EQ(updater.checks(), 1);
    EXPECT_EQ(updater.backgroundChecks(), 0);
}

using LaunchVFDDeathTest = LaunchVFDTest;

TEST_F(LaunchVFDDeathTest, CheckForUpdatesWithoutTheSharedUpdaterStopsTheProcess) {
    ScopedPort<platform::Updater> none(nullptr);
    EXPECT_DEATH(view.click("updates"), "^Fatal error: the shared updater is not available\n$");
}

}  // namespace
