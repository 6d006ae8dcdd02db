#include "host/UIInteractions.hpp"

#include <gtest/gtest.h>

#include "engine/doubles/InMemoryRegistry.hpp"
#include "host/HostingController.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace {

using vornix::engine::EncodableList;
using vornix::engine::EncodableMap;
using vornix::engine::EncodableValue;
using vornix::engine::MethodCall;
using vornix::engine::MethodEnvelope;
using vornix::engine::MethodNotImplemented;
using vornix::engine::MethodSuccess;
using vornix::engine::doubles::InMemoryRegistry;
using vornix::host::ContentView;
using vornix::host::HostingController;
using vornix::host::UIInteractions;
using vornix::platform::MainQueue;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::FakePopoverView;
using vornix::platform::doubles::ManualMainQueue;

const std::string channelName(UIInteractions::channelName);

EncodableMap authState(bool signedIn, std::string email, std::string appVersion, std::string port) {
    return EncodableMap{{"signedIn", signedIn}, {"email", email}, {"appVersion", appVersion}, {"port", port}};
}

class UIInteractionsTest : public testing::Test {
protected:
    void TearDown() override { UIInteractions::channel().reset(); }

    std::optional<MethodEnvelope> call(const std::string& method, EncodableValue arguments) {
        return registry.messenger().deliverCall(channelName, MethodCall{method, std::move(arguments)});
    }

    vornix::launch_agent::testing::LaunchControlTestHome home;
    ManualMainQueue queue;
    ScopedPort<MainQueue> mainQueue{&queue};
    InMemoryRegistry registry;
};

TEST_F(UIInteractionsTest, RegisteringBuildsTheChannelOnTheRegistrarsMessengerAndTheSharedInstanceAnswersIt) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    ASSERT_TRUE(UIInteractions::channel().has_value());
    EXPECT_EQ(UIInteractions::channel()->name(), "com.vornix.os/ui_interactions");
    EXPECT_EQ(&UIInteractions::channel()->messenger(), &registry.messenger());
    EXPECT_TRUE(registry.messenger().hasHandler(channelName));
}

TEST_F(UIInteractionsTest, WithoutARegistrarThereIsNoChannelAndOneLineSaysSo) {
    registry.withhold("UIInteractions");
    testing::internal::CaptureStdout();
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "macOS UI Interactions channel unable to register\n");
    EXPECT_FALSE(UIInteractions::channel().has_value());
    EXPECT_FALSE(registry.messenger().hasHandler(channelName));
}

TEST_F(UIInteractionsTest, SharedIsMadeOnceAndItsViewIsACopyOfTheSharedViewSharingItsModel) {
    EXPECT_EQ(UIInteractions::shared(), UIInteractions::shared());
    EXPECT_EQ(UIInteractions::shared()->view().model, ContentView::sharedInstance().model);
    EXPECT_NE(&UIInteractions::shared()->view(), &ContentView::sharedInstance());
}

TEST_F(UIInteractionsTest, AuthStateWithAllFourArgumentsUpdatesThePopoverAndAnswersTrue) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    FakePopoverView shown;
    HostingController popover(ContentView::sharedInstance(), shown);
    EXPECT_EQ(call("auth_state", authState(true, "ada@example.com", "2.4.1", "47321")),
              MethodEnvelope(MethodSuccess{true}));
    queue.advance(1.0);
    EXPECT_NO_THROW(shown.row("ada@example.com"));
    EXPECT_NO_THROW(shown.row("Version: 2.4.1"));
    EXPECT_NO_THROW(shown.row("Port: 47321"));
    EXPECT_NO_THROW(shown.button("sign_out"));
}

TEST_F(UIInteractionsTest, ThePortStaysTheTextTheEngineSent) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    call("auth_state", authState(false, "", "1.0.0", "08080"));
    queue.advance(1.0);
    EXPECT_EQ(ContentView::sharedInstance().model->port(), "08080");
}

TEST_F(UIInteractionsTest, ExtraKeysInTheArgumentMapAreIgnored) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    EncodableMap arguments = authState(true, "e@example.com", "3.0.0", "1");
    arguments.set("theme", "dark");
    EXPECT_EQ(call("auth_state", arguments), MethodEnvelope(MethodSuccess{true}));
    queue.advance(1.0);
    EXPECT_EQ(ContentView::sharedInstance().model->email(), "e@example.com");
}

TEST_F(UIInteractionsTest, AMethodDifferingFromAuthStateOnlyInLetterCaseIsNotImplemented) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    auto before = ContentView::sharedInstance().model->appVersion();
    for (const char* method : {"Auth_State", "AUTH_STATE", "auth_State"}) {
        EXPECT_EQ(call(method, authState(true, "x", "9.9.9", "1")), MethodEnvelope(MethodNotImplemented{})) << method;
    }
    queue.advance(2.0);
    EXPECT_EQ(ContentView::sharedInstance().model->appVersion(), before);
}

TEST_F(UIInteractionsTest, OtherMethodsAreNotImplementedWhateverTheirArguments) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    EXPECT_EQ(call("sign_in", EncodableValue()), MethodEnvelope(MethodNotImplemented{}));
    EXPECT_EQ(call("", EncodableValue(42)), MethodEnvelope(MethodNotImplemented{}));
    EXPECT_EQ(queue.pending(), 0u);
}

using UIInteractionsDeathTest = UIInteractionsTest;

TEST_F(UIInteractionsDeathTest, AuthStateWithThePortGivenAsANumberStopsTheProcess) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    EncodableMap arguments = authState(true, "e", "1.0.0", "");
    arguments.set("port", 47321);
    EXPECT_DEATH(call("auth_state", arguments), "Fatal error: \"auth_state\" needs the argument \"port\" as a string");
}

TEST_F(UIInteractionsDeathTest, AuthStateWithAMissingArgumentStopsTheProcess) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    for (const char* key : {"signedIn", "email", "appVersion", "port"}) {
        EncodableMap arguments;
        for (const auto& [name, value] : authState(true, "e", "1.0.0", "1")) {
            if (*name.get<std::string>() != key) {
                arguments.set(name, value);
            }
        }
        EXPECT_DEATH(call("auth_state", arguments), std::string("Fatal error: \"auth_state\" needs the argument \"") + key)
            << key;
    }
}

TEST_F(UIInteractionsDeathTest, AuthStateWithSignedInAsTextStopsTheProcess) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    EncodableMap arguments = authState(true, "e", "1.0.0", "1");
    arguments.set("signedIn", "true");
    EXPECT_DEATH(call("auth_state", arguments), "needs the argument \"signedIn\" as a boolean");
}

TEST_F(UIInteractionsDeathTest, AuthStateWhoseArgumentsAreNoMapStopsTheProcess) {
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    EXPECT_DEATH(call("auth_state", EncodableValue()), "Fatal error: \"auth_state\" needs the argument");
    EXPECT_DEATH(call("auth_state", EncodableList{true, "e", "1.0.0", "1"}), "Fatal error: \"auth_state\" needs");
}

TEST_F(UIInteractionsDeathTest, AuthStateWhoseMapHasAKeyThatIsNoStringStopsTheProcess) {
    // Such a map is not a map from strings: all four values read as missing.
    UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
    EncodableMap arguments = authState(true, "e", "1.0.0", "1");
    arguments.set(EncodableValue(1), "one");
    EXPECT_DEATH(call("auth_state", arguments), "Fatal error: \"auth_state\" needs the argument \"email\"");
}

}  // namespace
