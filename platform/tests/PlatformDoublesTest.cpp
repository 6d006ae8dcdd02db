#include <gtest/gtest.h>

#include "platform/doubles/CountingUpdater.hpp"
#include "platform/doubles/ManualAppleEventManager.hpp"
#include "platform/doubles/RecordingAlerts.hpp"

namespace {

using namespace vornix::platform;
using namespace vornix::platform::doubles;

static_assert(internetEventClass == 0x4755524C);
static_assert(getURLEventID == 0x4755524C);
static_assert(directObjectKeyword == 0x2D2D2D2D);

TEST(RecordingAlerts, RecordsEveryAlertAndAnswersTheFirstButtonUnlessScripted) {
    RecordingAlerts alerts;
    Alert question{"Quit?", "Unsaved work is lost.", AlertStyle::critical, {"Quit", "Cancel"}};
    alerts.answerWithButton(1);
    EXPECT_EQ(alerts.runModal(question), alertSecondButtonReturn);
    EXPECT_EQ(alerts.runModal(Alert{.messageText = "Done"}), alertFirstButtonReturn);
    ASSERT_EQ(alerts.shown().size(), 2u);
    EXPECT_EQ(alerts.shown()[0], question);
    EXPECT_EQ(alerts.shown()[1].messageText, "Done");
    EXPECT_EQ(alerts.shown()[1].alertStyle, AlertStyle::warning);
}

class RelaunchWatcher : public UpdaterDelegate {
public:
    void updaterDidRelaunchApplication(Updater& updater) override { relaunchedBy = &updater; }
    Updater* relaunchedBy = nullptr;
};

TEST(CountingUpdater, CountsEachKindOfCheckAndTellsItsDelegateOfARelaunch) {
    CountingUpdater updater;
    RelaunchWatcher watcher;
    updater.setDelegate(&watcher);
    updater.checkForUpdatesInBackground();
    updater.checkForUpdatesInBackground();
    updater.checkForUpdates();
    EXPECT_EQ(updater.backgroundChecks(), 2);
    EXPECT_EQ(updater.checks(), 1);
    EXPECT_EQ(updater.delegate(), &watcher);
    updater.relaunch();
    EXPECT_EQ(watcher.relaunchedBy, &updater);
}

TEST(UpdaterPort, AMissingUpdaterIsNullWhenAskedIfInstalled) {
    ScopedPort<Updater> none(nullptr);
    EXPECT_EQ(Updater::installed(), nullptr);
}

TEST(ManualAppleEventManager, DeliversToTheHandlerOfTheEventsClassAndID) {
    ManualAppleEventManager manager;
    std::optional<std::string> received;
    manager.setEventHandler(
        [&](const AppleEvent& event, AppleEvent&) {
            received = event.paramDescriptorForKeyword(directObjectKeyword)->stringValue;
        },
        internetEventClass, getURLEventID);
    EXPECT_TRUE(manager.deliverGetURL("s://h?launch"));
    EXPECT_EQ(received, "s://h?launch");
    EXPECT_FALSE(manager.deliver(AppleEvent(), fourCharCode("aevt"), fourCharCode("oapp")));
}

TEST(ManualAppleEventManager, DeliversNothingOnceTheHandlerIsRemoved) {
    ManualAppleEventManager manager;
    int calls = 0;
    manager.setEventHandler([&](const AppleEvent&, AppleEvent&) { ++calls; }, internetEventClass, getURLEventID);
    manager.removeEventHandler(internetEventClass, getURLEventID);
    EXPECT_FALSE(manager.hasHandler(internetEventClass, getURLEventID));
    EXPECT_FALSE(manager.deliverGetURL("s://h?launch"));
    EXPECT_EQ(calls, 0);
}

TEST(AppleEvent, AnAbsentParameterIsNothingAndADescriptorMayHoldNoText) {
    AppleEvent event;
    EXPECT_EQ(event.paramDescriptorForKeyword(directObjectKeyword), std::nullopt);
    event.setParamDescriptor(AppleEventDescriptor{}, directObjectKeyword);
    ASSERT_TRUE(event.paramDescriptorForKeyword(directObjectKeyword).has_value());
    EXPECT_EQ(event.paramDescriptorForKeyword(directObjectKeyword)->stringValue, std::nullopt);
}

}  // namespace
