#include "host/CustomURLSchemes.hpp"

#include <gtest/gtest.h>

#include "engine/doubles/InMemoryRegistry.hpp"
#include "platform/doubles/CountingUpdater.hpp"
#include "platform/doubles/ManualAppleEventManager.hpp"
#include "platform/doubles/RecordingAlerts.hpp"

namespace {

using namespace vornix;
using engine::EncodableList;
using engine::EncodableMap;
using engine::EncodableValue;
using engine::MethodCall;
using engine::MethodEnvelope;
using engine::MethodNotImplemented;
using engine::MethodSuccess;
using host::CustomURLSchemeHandler;
using platform::AppleEvent;
using platform::AppleEventDescriptor;

constexpr std::string_view channelName = "com.vornix.os/custom_url_scheme";

// Alerts that also note how many messages the engine had been sent when each alert ran.
class WatchingAlerts : public platform::doubles::RecordingAlerts {
public:
    explicit WatchingAlerts(const engine::doubles::InMemoryMessenger& messenger) : messenger_(messenger) {}
    platform::ModalResponse runModal(const platform::Alert& alert) override {
        sentBeforeAlert.push_back(messenger_.sent().size());
        return RecordingAlerts::runModal(alert);
    }
    std::vector<std::size_t> sentBeforeAlert;

private:
    const engine::doubles::InMemoryMessenger& messenger_;
};

class CustomURLSchemes : public ::testing::Test {
protected:
    void SetUp() override { CustomURLSchemeHandler::channel().reset(); }
    void TearDown() override { CustomURLSchemeHandler::channel().reset(); }

    void registerHandler() {
        ::testing::internal::CaptureStdout();
        CustomURLSchemeHandler::registerWith(registry.registrarForPlugin("CustomURLSchemeHandler"));
        ::testing::internal::GetCapturedStdout();
    }

    void openURL(const std::string& text) {
        AppleEvent event;
        event.setParamDescriptor(AppleEventDescriptor{text}, platform::directObjectKeyword);
        AppleEvent reply;
        CustomURLSchemeHandler::shared()->handleAppleEvent(event, reply);
    }

    std::vector<MethodCall> sentCalls() { return registry.messenger().sentCalls(channelName); }
    std::vector<std::string> alertTexts() {
        std::vector<std::string> texts;
        for (const auto& alert : alerts.shown()) texts.push_back(alert.messageText);
        return texts;
    }

    engine::doubles::InMemoryRegistry registry;
    WatchingAlerts alerts{registry.messenger()};
    platform::doubles::CountingUpdater updater;
    platform::ScopedPort<platform::Alerts> alertsPort{&alerts};
    platform::ScopedPort<platform::Updater> updaterPort{&updater};
};

TEST_F(CustomURLSchemes, RegisteringBuildsTheChannelMakesTheSharedHandlerItsDelegateAndSaysSo) {
    ::testing::internal::CaptureStdout();
    CustomURLSchemeHandler::registerWith(registry.registrarForPlugin("CustomURLSchemeHandler"));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "PLUGIN REGISTERED\n");
    ASSERT_TRUE(CustomURLSchemeHandler::channel().has_value());
    EXPECT_EQ(CustomURLSchemeHandler::channel()->name(), channelName);
    EXPECT_EQ(&CustomURLSchemeHandler::channel()->messenger(), &registry.messenger());
    EXPECT_TRUE(registry.messenger().hasHandler(channelName));
}

TEST_F(CustomURLSchemes, WithoutARegistrarThereIsNoChannelAndItSaysChannelFucked) {
    registry.withhold("CustomURLSchemeHandler");
    ::testing::internal::CaptureStdout();
    CustomURLSchemeHandler::registerWith(registry.registrarForPlugin("CustomURLSchemeHandler"));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Channel FUCKED\n");
    EXPECT_FALSE(CustomURLSchemeHandler::channel().has_value());
    EXPECT_FALSE(registry.messenger().hasHandler(channelName));
}

TEST_F(CustomURLSchemes, TheSharedHandlerIsOneInstance) {
    EXPECT_EQ(CustomURLSchemeHandler::shared().get(), CustomURLSchemeHandler::shared().get());
    EXPECT_NE(CustomURLSchemeHandler::shared(), nullptr);
}

TEST_F(CustomURLSchemes, TheMethodOpenAnswersTrueWhateverItsArguments) {
    registerHandler();
    const std::vector<EncodableValue> argumentsTried{
        EncodableValue(),
        EncodableMap{{"scheme", "vornix"}},
        EncodableMap{{"scheme", 42}},
        EncodableMap{{1, "x"}, {"scheme", "vornix"}},
        EncodableList{"scheme", "vornix"},
        "scheme",
    };
    for (const EncodableValue& arguments : argumentsTried) {
        ::testing::internal::CaptureStdout();
        const auto reply = registry.messenger().deliverCall(channelName, {"open", arguments});
        EXPECT_EQ(::testing::internal::GetCapturedStdout(), "before open call\nopen\n");
        EXPECT_EQ(reply, MethodEnvelope(MethodSuccess{true}));
    }
}

TEST_F(CustomURLSchemes, AnyOtherMethodIsNotImplementedAfterTheSameTwoLines) {
    registerHandler();
    for (const char* method : {"close", "Open", "hello", ""}) {
        ::testing::internal::CaptureStdout();
        const auto reply = registry.messenger().deliverCall(channelName, {method, EncodableMap{{"scheme", "x"}}});
        EXPECT_EQ(::testing::internal::GetCapturedStdout(), "before open call\n" + std::string(method) + "\n");
        EXPECT_EQ(reply, MethodEnvelope(MethodNotImplemented{}));
    }
}

TEST_F(CustomURLSchemes, QueryUpdateStartsABackgroundUpdateCheckAndShowsNoAlert) {
    registerHandler();
    openURL("vornix://app?update");
    EXPECT_EQ(updater.backgroundChecks(), 1);
    EXPECT_EQ(updater.checks(), 0);
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_TRUE(registry.messenger().sent().empty());
}

TEST_F(CustomURLSchemes, QueryLaunchDoesNothingAtAll) {
    registerHandler();
    ::testing::internal::CaptureStdout();
    openURL("vornix://app?launch");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(updater.backgroundChecks(), 0);
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_TRUE(registry.messenger().sent().empty());
}

TEST_F(CustomURLSchemes, UserAssetAndShareAreSentAsUrlParamsThenConfirmedInAnAlert) {
    registerHandler();
    openURL("scheme://host?user=U&asset=A&share=S");
    EXPECT_EQ(sentCalls(), (std::vector<MethodCall>{{"urlParams", EncodableMap{{"user", "U"}, {"asset", "A"}, {"share", "S"}}}}));
    EXPECT_EQ(alertTexts(), std::vector<std::string>{"Open Vornix: Optional(scheme://host?user=U&asset=A&share=S)"});
    EXPECT_EQ(alerts.sentBeforeAlert, std::vector<std::size_t>{1});
}

TEST_F(CustomURLSchemes, AFourthPartIsIgnored) {
    registerHandler();
    openURL("vornix://x?user=1&asset=2&share=3&extra=4");
    EXPECT_EQ(sentCalls(), (std::vector<MethodCall>{{"urlParams", EncodableMap{{"user", "1"}, {"asset", "2"}, {"share", "3"}}}}));
    EXPECT_EQ(alertTexts(), std::vector<std::string>{"Open Vornix: Optional(vornix://x?user=1&asset=2&share=3&extra=4)"});
}

TEST_F(CustomURLSchemes, ARepeatedKeyShowsInvalidURLAndSendsNothing) {
    registerHandler();
    openURL("vornix://x?user=1&user=2&share=3");
    EXPECT_TRUE(registry.messenger().sent().empty());
    EXPECT_EQ(alertTexts(), std::vector<std::string>{"Invalid URL"});
}

TEST_F(CustomURLSchemes, ThreePartsWithoutAllThreeKeysShowInvalidURL) {
    registerHandler();
    openURL("vornix://x?user=1&asset=2&other=3");
    EXPECT_TRUE(registry.messenger().sent().empty());
    EXPECT_EQ(alertTexts(), std::vector<std::string>{"Invalid URL"});
}

TEST_F(CustomURLSchemes, TheKeysAreAcceptedInAnyOrder) {
    registerHandler();
    openURL("vornix://x?share=3&asset=2&user=1");
    EXPECT_EQ(sentCalls(), (std::vector<MethodCall>{{"urlParams", EncodableMap{{"user", "1"}, {"asset", "2"}, {"share", "3"}}}}));
    EXPECT_EQ(alertTexts(), std::vector<std::string>{"Open Vornix: Optional(vornix://x?share=3&asset=2&user=1)"});
}

TEST_F(CustomURLSchemes, FieldsAfterTheSecondEqualsSignAreIgnoredAndValuesStayPercentEncoded) {
    registerHandler();
    openURL("vornix://x?user=a%20b=c&asset=&share=%3D");
    EXPECT_EQ(sentCalls(), (std::vector<MethodCall>{{"urlParams", EncodableMap{{"user", "a%20b"}, {"asset", ""}, {"share", "%3D"}}}}));
}

TEST_F(CustomURLSchemes, TheHostAndPathAreNeverLookedAt) {
    registerHandler();
    openURL("other:path/only?user=U&asset=A&share=S");
    EXPECT_EQ(sentCalls().size(), 1u);
    EXPECT_EQ(alertTexts(), std::vector<std::string>{"Open Vornix: Optional(other:path/only?user=U&asset=A&share=S)"});
}

TEST_F(CustomURLSchemes, AnEventWithoutADirectObjectIsIgnored) {
    registerHandler();
    AppleEvent event;
    AppleEvent reply;
    CustomURLSchemeHandler::shared()->handleAppleEvent(event, reply);
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_TRUE(registry.messenger().sent().empty());
}

TEST_F(CustomURLSchemes, ADirectObjectWithoutTextIsIgnored) {
    registerHandler();
    AppleEvent event;
    event.setParamDescriptor(AppleEventDescriptor{}, platform::directObjectKeyword);
    AppleEvent reply;
    CustomURLSchemeHandler::shared()->handleAppleEvent(event, reply);
    EXPECT_TRUE(alerts.shown().empty());
    EXPECT_TRUE(registry.messenger().sent().empty());
}

TEST_F(CustomURLSchemes, EventsReachTheHandlerThroughTheAppleEventManager) {
    registerHandler();
    platform::doubles::ManualAppleEventManager manager;
    manager.setEventHandler(
        [](const AppleEvent& event, AppleEvent& reply) { CustomURLSchemeHandler::shared()->handleAppleEvent(event, reply); },
        platform::internetEventClass, platform::getURLEventID);
    EXPECT_TRUE(manager.deliverGetURL("vornix://x?update"));
    EXPECT_EQ(updater.backgroundChecks(), 1);
}

using CustomURLSchemesDeathTest = CustomURLSchemes;

TEST_F(CustomURLSchemesDeathTest, AnUnparsableURLStopsTheProcess) {
    registerHandler();
    EXPECT_DEATH(openURL("vornix://x?user=a b&asset=2&share=3"), "Fatal error: the URL event's text is not a URL");
    EXPECT_DEATH(openURL("vornix://x?user=100%&asset=2&share=3"), "Fatal error: the URL event's text is not a URL");
}

TEST_F(CustomURLSchemesDeathTest, AURLWithoutAQueryStopsTheProcess) {
    registerHandler();
    EXPECT_DEATH(openURL("vornix://x/update"), "Fatal error: the URL has no query");
}

TEST_F(CustomURLSchemesDeathTest, APartWithoutAnEqualsSignStopsTheProcess) {
    registerHandler();
    EXPECT_DEATH(openURL("vornix://x?user&asset=2&share=3"), "Fatal error: a part of the URL's query has no \"=\": user");
    EXPECT_DEATH(openURL("vornix://x?user=1&&share=3"), "Fatal error: a part of the URL's query has no \"=\"");
}

TEST_F(CustomURLSchemesDeathTest, FewerThanThreePartsStopTheProcess) {
    registerHandler();
    EXPECT_DEATH(openURL("vornix://x?user=1&asset=2"), "Fatal error: the URL's query has fewer than three parts");
    EXPECT_DEATH(openURL("vornix://x?updates=1"), "Fatal error: the URL's query has fewer than three parts");
}

TEST_F(CustomURLSchemesDeathTest, SendingUrlParamsWithoutAChannelStopsTheProcess) {
    EXPECT_DEATH(openURL("vornix://x?user=1&asset=2&share=3"), "Fatal error: the custom URL scheme channel is not registered");
}

TEST_F(CustomURLSchemesDeathTest, AnUpdateWithoutTheSharedUpdaterStopsTheProcess) {
    platform::ScopedPort<platform::Updater> noUpdater(nullptr);
    EXPECT_DEATH(openURL("vornix://x?update"), "Fatal error: the shared updater is not available");
}

}  // namespace
