#include "host/AppDelegate.hpp"

#include <gtest/gtest.h>

#include "engine/StandardMethodCodec.hpp"
#include "engine/doubles/InMemoryMessenger.hpp"
#include "engine/doubles/InMemoryRegistry.hpp"
#include "host/ContentView.hpp"
#include "host/CustomURLSchemes.hpp"
#include "host/MenuModel.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/CountingUpdater.hpp"
#include "platform/doubles/EventLog.hpp"
#include "platform/doubles/FakeApplication.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/FakeStatusBar.hpp"
#include "platform/doubles/FakeWorkspace.hpp"
#include "platform/doubles/ManualAppleEventManager.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/doubles/RecordingAlerts.hpp"

namespace {

using namespace vornix;
using host::AppDelegate;
using host::ContentView;
using host::CustomURLSchemeHandler;
using platform::ScopedPort;
using platform::doubles::EventLog;
using Entries = std::vector<std::string>;

const std::string customURLSchemeChannel(CustomURLSchemeHandler::channelName);

std::string fourCharText(platform::FourCharCode code) {
    return {static_cast<char>(code >> 24), static_cast<char>(code >> 16), static_cast<char>(code >> 8),
            static_cast<char>(code)};
}

// The engine's doubles, made to write what they are asked into the shared event log.
class LoggingUpdater : public platform::doubles::CountingUpdater {
public:
    explicit LoggingUpdater(EventLog& log) : log_(log) {}
    void setDelegate(platform::UpdaterDelegate* delegate) override {
        log_.record("updater.delegate");
        CountingUpdater::setDelegate(delegate);
    }

private:
    EventLog& log_;
};

class LoggingAppleEventManager : public platform::doubles::ManualAppleEventManager {
public:
    explicit LoggingAppleEventManager(EventLog& log) : log_(log) {}
    void setEventHandler(EventHandler handler, platform::FourCharCode eventClass,
                         platform::FourCharCode eventID) override {
        log_.record("appleEventManager.setEventHandler " + fourCharText(eventClass) + "/" + fourCharText(eventID));
        ManualAppleEventManager::setEventHandler(std::move(handler), eventClass, eventID);
    }
    void removeEventHandler(platform::FourCharCode eventClass, platform::FourCharCode eventID) override {
        log_.record("appleEventManager.removeEventHandler " + fourCharText(eventClass) + "/" + fourCharText(eventID));
        ManualAppleEventManager::removeEventHandler(eventClass, eventID);
    }

private:
    EventLog& log_;
};

class LoggingMessenger : public engine::doubles::InMemoryMessenger {
public:
    explicit LoggingMessenger(EventLog& log) : log_(log) {}
    void send(std::string_view channel, std::span<const std::uint8_t> message) override {
        InMemoryMessenger::send(channel, message);
        log_.record("engine " + std::string(channel) + " " + sentCalls(channel).back().method);
    }

private:
    EventLog& log_;
};

class AppDelegateTest : public testing::Test {
protected:
    void SetUp() override {
        // The shared view is made on first use, which may write a line about the launch agent file;
        // make it before the sequences under test.
        testing::internal::CaptureStdout();
        ContentView::sharedInstance();
        testing::internal::GetCapturedStdout();
        CustomURLSchemeHandler::channel().reset();
    }
    void TearDown() override { CustomURLSchemeHandler::channel().reset(); }

    void registerCustomURLSchemeChannel() {
        testing::internal::CaptureStdout();
        CustomURLSchemeHandler::registerWith(&registrar);
        testing::internal::GetCapturedStdout();
    }

    void launch(platform::OperatingSystemVersion version = {13, 0, 0}) {
        application = platform::doubles::FakeApplication(version, &log);
        log.captureOutput([&] { delegate.applicationDidFinishLaunching(); });
    }

    platform::doubles::FakePopover& popover() {
        EXPECT_EQ(popovers.made().size(), 1u);
        return *popovers.made().at(0);
    }
    platform::doubles::FakeStatusBarButton& button() { return *statusBar.items().at(0)->fakeButton(); }

    vornix::launch_agent::testing::LaunchControlTestHome home;
    EventLog log;
    platform::doubles::ManualMainQueue queue;
    ScopedPort<platform::MainQueue> mainQueue{&queue};
    platform::doubles::FakeApplication application{{13, 0, 0}, &log};
    ScopedPort<platform::Application> applicationPort{&application};
    LoggingUpdater updater{log};
    ScopedPort<platform::Updater> updaterPort{&updater};
    LoggingAppleEventManager appleEvents{log};
    ScopedPort<platform::AppleEventManager> appleEventsPort{&appleEvents};
    platform::doubles::FakePopovers popovers{&log};
    ScopedPort<platform::Popovers> popoversPort{&popovers};
    platform::doubles::FakeStatusBar statusBar{&log};
    ScopedPort<platform::StatusBar> statusBarPort{&statusBar};
    platform::doubles::FakeWorkspace workspace{&log};
    ScopedPort<platform::Workspace> workspacePort{&workspace};
    platform::doubles::RecordingAlerts alerts;
    ScopedPort<platform::Alerts> alertsPort{&alerts};
    LoggingMessenger messenger{log};
    engine::doubles::InMemoryRegistrar registrar{messenger};
    AppDelegate delegate;
};

TEST_F(AppDelegateTest, StartUpRunsStrictlyInItsOrder) {
    registerCustomURLSchemeChannel();
    launch();
    EXPECT_EQ(log.entries(), (Entries{
                                 "stdout: finished launching",
                                 "updater.delegate",
                                 "appleEventManager.setEventHandler GURL/GURL",
                                 "engine com.vornix.os/custom_url_scheme hello",
                                 "popovers.makePopover",
                                 "popover.contentSize 200x200",
                                 "popover.behavior 1",
                                 "popoverView.render",
                                 "statusBar.statusItem -1",
                                 "statusBarButton.image TrayIcon",
                                 "statusBarButton.action",
                             }));
}

TEST_F(AppDelegateTest, TheDelegateBecomesTheUpdatersDelegate) {
    launch();
    EXPECT_EQ(updater.delegate(), &delegate);
}

TEST_F(AppDelegateTest, HelloIsSentWithNoArguments) {
    registerCustomURLSchemeChannel();
    launch();
    EXPECT_EQ(messenger.sentCalls(customURLSchemeChannel),
              (std::vector<engine::MethodCall>{{"hello", engine::EncodableValue()}}));
}

TEST_F(AppDelegateTest, StartUpOnMacOS10_14MakesNoMenuBarIconButStillInstallsTheURLHandlerAndSendsHello) {
    registerCustomURLSchemeChannel();
    launch({10, 14, 6});
    EXPECT_EQ(log.entries(), (Entries{
                                 "stdout: finished launching",
                                 "updater.delegate",
                                 "appleEventManager.setEventHandler GURL/GURL",
                                 "engine com.vornix.os/custom_url_scheme hello",
                             }));
    EXPECT_TRUE(statusBar.items().empty());
    EXPECT_TRUE(popovers.made().empty());
    EXPECT_EQ(delegate.popover(), nullptr);
    EXPECT_EQ(delegate.statusBarItem(), nullptr);
    EXPECT_TRUE(appleEvents.hasHandler(platform::internetEventClass, platform::getURLEventID));
}

TEST_F(AppDelegateTest, TheMenuBarNeedsMacOS10_15_0OrLater) {
    for (platform::OperatingSystemVersion version :
         {platform::OperatingSystemVersion{10, 14, 99}, {10, 15, 0}, {10, 15, 7}, {11, 0, 0}, {9, 20, 0}}) {
        AppDelegate fresh;
        application = platform::doubles::FakeApplication(version);
        testing::internal::CaptureStdout();
        fresh.applicationDidFinishLaunching();
        testing::internal::GetCapturedStdout();
        bool expected = version >= platform::OperatingSystemVersion{10, 15, 0};
        EXPECT_EQ(fresh.statusBarItem() != nullptr, expected) << version.majorVersion << "." << version.minorVersion;
        EXPECT_EQ(fresh.popover() != nullptr, expected);
    }
}

TEST_F(AppDelegateTest, WithoutTheCustomURLSchemeChannelNoHelloIsSentAndNoErrorShown) {
    launch();
    EXPECT_TRUE(messenger.sent().empty());
    EXPECT_TRUE(alerts.shown().empty());
    Entries entries = log.entries();
    EXPECT_EQ(std::count_if(entries.begin(), entries.end(),
                            [](const std::string& entry) { return entry.starts_with("stdout: "); }),
              1);
    EXPECT_NE(delegate.statusBarItem(), nullptr);
}

TEST_F(AppDelegateTest, ThePopoverIs200By200TransientAroundACopyOfTheSharedView) {
    launch();
    ASSERT_NE(delegate.popover(), nullptr);
    EXPECT_EQ(popover().contentSize(), (platform::Size{200.0, 200.0}));
    EXPECT_EQ(popover().behavior(), platform::PopoverBehavior::transient);
    EXPECT_EQ(popover().fakeView().rows(), ContentView::sharedInstance().body());
    ContentView::sharedInstance().updateAuth(true, "ada@example.com", "2.4.1", "47321");
    queue.advance(1.0);
    EXPECT_NO_THROW(popover().fakeView().row("ada@example.com"));
    // The popover's hover state is its copy's own.
    popover().fakeView().hover("quit", true);
    EXPECT_EQ(ContentView::sharedInstance().lastHoveredId.wrappedValue(), "");
}

TEST_F(AppDelegateTest, TheStatusItemIsVariableLengthWithTheTrayIconAndTogglesThePopover) {
    launch();
    ASSERT_EQ(statusBar.items().size(), 1u);
    EXPECT_EQ(statusBar.items()[0]->length(), -1.0);
    EXPECT_EQ(button().imageName(), "TrayIcon");
    ASSERT_TRUE(button().hasAction());
    button().click();
    EXPECT_TRUE(popover().isShown());
}

TEST_F(AppDelegateTest, AnItemWithAMenuOfItsOwnHoldsThePopoversRowsAndFollowsTheModel) {
    statusBar.setItemsHaveMenus(true);
    launch();
    auto& menu = statusBar.items().at(0)->fakeMenu();
    EXPECT_TRUE(menu.hasEvents());
    EXPECT_EQ(menu.items(), vornix::host::MenuModel::items(popover().fakeView().rows()));
    ContentView::sharedInstance().updateAuth(true, "ada@example.com", "2.4.1", "47321");
    queue.advance(1.0);
    EXPECT_FALSE(menu.item("ada@example.com").isEnabled);
    EXPECT_EQ(menu.item("Sign Out...").id, "sign_out");
    EXPECT_EQ(menu.items(), vornix::host::MenuModel::items(popover().fakeView().rows()));
}

TEST_F(AppDelegateTest, AnItemWithoutAMenuOfItsOwnGetsNone) {
    launch();
    EXPECT_FALSE(statusBar.items().at(0)->fakeMenu().hasEvents());
    EXPECT_EQ(statusBar.items().at(0)->fakeMenu().renderCount(), 0);
}

TEST_F(AppDelegateTest, ClickingTheIconWhileClosedOpensThePopoverBelowTheIconWithKeyboardFocus) {
    launch();
    button().setBounds({0.0, 0.0, 30.0, 22.0});
    log.clear();
    button().click();
    ASSERT_EQ(popover().showCalls().size(), 1u);
    const auto& shown = popover().showCalls()[0];
    EXPECT_EQ(shown.relativeTo, (platform::Rect{0.0, 0.0, 30.0, 22.0}));
    EXPECT_EQ(shown.of, &button());
    EXPECT_EQ(shown.preferredEdge, platform::RectEdge::minY);
    EXPECT_EQ(static_cast<int>(shown.preferredEdge), 1);
    EXPECT_EQ(log.entries(), (Entries{"popover.show edge 1", "popoverWindow.makeKey"}));
}

TEST_F(AppDelegateTest, ClickingTheIconWhileThePopoverIsShownClosesIt) {
    launch();
    button().click();
    log.clear();
    button().click();
    EXPECT_FALSE(popover().isShown());
    EXPECT_EQ(popover().closeCount(), 1);
    EXPECT_EQ(log.entries(), (Entries{"popover.performClose"}));
    button().click();
    EXPECT_TRUE(popover().isShown());
}

TEST_F(AppDelegateTest, AfterTheTransientPopoverClosedItselfTheNextClickOpensIt) {
    launch();
    button().click();
    popover().clickOutside();
    button().click();
    EXPECT_TRUE(popover().isShown());
    EXPECT_EQ(popover().showCalls().size(), 2u);
}

TEST_F(AppDelegateTest, TheFocusStepIsSkippedWhenThePopoverHasNoWindow) {
    launch();
    popover().setGetsWindow(false);
    button().click();
    EXPECT_TRUE(popover().isShown());
    EXPECT_EQ(popover().fakeWindow().makeKeyCount(), 0);
}

TEST_F(AppDelegateTest, AStatusItemWithoutAButtonGetsNoImageNorActionAndTogglingDoesNothing) {
    statusBar.setItemsHaveButtons(false);
    launch();
    ASSERT_NE(delegate.statusBarItem(), nullptr);
    EXPECT_EQ(delegate.statusBarItem()->button(), nullptr);
    log.clear();
    delegate.togglePopover();
    EXPECT_FALSE(popover().isShown());
    EXPECT_TRUE(log.entries().empty());
}

TEST_F(AppDelegateTest, ClosingEveryWindowLeavesTheProcessRunning) {
    EXPECT_FALSE(delegate.applicationShouldTerminateAfterLastWindowClosed());
    application.openWindow();
    application.openWindow();
    application.closeWindow();
    delegate.windowDidClose();
    application.closeWindow();
    delegate.windowDidClose();
    EXPECT_EQ(application.windowCount(), 0u);
    EXPECT_EQ(application.terminateCount(), 0);
}

TEST_F(AppDelegateTest, AfterAnUpdateRelaunchTheReleaseNotesSiteOpensOnce) {
    launch();
    log.clear();
    updater.relaunch();
    EXPECT_EQ(workspace.opened(), (std::vector<std::string>{"https://updates.vornix.com"}));
    EXPECT_EQ(log.entries(), (Entries{"workspace.open https://updates.vornix.com"}));
}

TEST_F(AppDelegateTest, TheReleaseNotesSiteIsTheUpdateSitesHttpsRootInTwentySixCharacters) {
    const std::string site = host::WebEndpoints{}.releaseNotesSite;
    EXPECT_EQ(site.size(), 26u);
    auto parsed = url::URL::parse(site);
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed->scheme(), "https");
    EXPECT_EQ(parsed->path(), "");
    EXPECT_FALSE(parsed->query().has_value());
}

TEST_F(AppDelegateTest, AReleaseNotesAddressThatIsNoURLIsReported) {
    AppDelegate misconfigured(host::WebEndpoints{"https://updates vornix com", "https://vornix.com/install"});
    testing::internal::CaptureStdout();
    misconfigured.updaterDidRelaunchApplication(updater);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "There was an error launching the release notes URL\n");
    EXPECT_TRUE(workspace.opened().empty());
}

TEST_F(AppDelegateTest, AURLEventAfterStartUpReachesTheCustomURLSchemeHandler) {
    launch();
    EXPECT_TRUE(appleEvents.deliverGetURL("vornix://open?update"));
    EXPECT_EQ(updater.backgroundChecks(), 1);
}

TEST_F(AppDelegateTest, AtTerminationTheGURLHandlerIsRemovedAndALaterURLEventIsNotDelivered) {
    launch();
    log.clear();
    delegate.applicationWillTerminate();
    EXPECT_EQ(log.entries(), (Entries{"appleEventManager.removeEventHandler GURL/GURL"}));
    EXPECT_FALSE(appleEvents.hasHandler(platform::internetEventClass, platform::getURLEventID));
    EXPECT_FALSE(appleEvents.deliverGetURL("vornix://open?update"));
    EXPECT_EQ(updater.backgroundChecks(), 0);
    EXPECT_EQ(application.terminateCount(), 0);
}

using AppDelegateDeathTest = AppDelegateTest;

TEST_F(AppDelegateDeathTest, StartUpWithoutTheSharedUpdaterStopsTheProcess) {
    ScopedPort<platform::Updater> none(nullptr);
    EXPECT_DEATH(delegate.applicationDidFinishLaunching(), "Fatal error: the shared updater is not available");
}

TEST_F(AppDelegateDeathTest, AStatusItemMissingWhenReadBackStopsTheProcess) {
    statusBar.setGivesItems(false);
    EXPECT_DEATH(delegate.applicationDidFinishLaunching(), "Fatal error: the status bar gave no status item");
}

TEST_F(AppDelegateDeathTest, TogglingWithoutAStatusItemStopsTheProcess) {
    EXPECT_DEATH(delegate.togglePopover(), "^Fatal error: the popover was toggled without a status item\n$");
    application = platform::doubles::FakeApplication({10, 14, 0});
    testing::internal::CaptureStdout();
    delegate.applicationDidFinishLaunching();
    testing::internal::GetCapturedStdout();
    EXPECT_DEATH(delegate.togglePopover(), "^Fatal error: the popover was toggled without a status item\n$");
}

}  // namespace
