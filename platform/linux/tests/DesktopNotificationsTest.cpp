#include "platform/linux/DesktopNotifications.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/tests/PrivateSessionBus.hpp"
#include "platform/linux/tests/StandardOutputPipe.hpp"

namespace {

using vornix::platform::Notification;
using vornix::platform::linux::DesktopNotifications;
using vornix::platform::linux::testing::iterateUntil;
using vornix::platform::linux::testing::PrivateSessionBus;
using vornix::platform::linux::testing::StandardOutputPipe;

const char* const serverInterfaceXml = R"(<node>
  <interface name="org.freedesktop.Notifications">
    <method name="Notify">
      <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
      <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/>
    </method>
  </interface>
</node>)";

// A stand-in for the desktop's notification server: records Notify calls, answers with
// increasing ids, and emits the signals a person's clicks would cause.
class FakeNotificationServer {
public:
    struct Call {
        std::string applicationName;
        std::string summary;
        std::string body;
        std::vector<std::string> actions;
    };

    explicit FakeNotificationServer(GDBusConnection* connection) : connection_(connection) {
        GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(serverInterfaceXml, nullptr);
        static const GDBusInterfaceVTable vtable = {onMethodCall, nullptr, nullptr, {}};
        registration_ = g_dbus_connection_register_object(connection_, "/org/freedesktop/Notifications",
                                                          node->interfaces[0], &vtable, this, nullptr, nullptr);
        g_dbus_node_info_unref(node);
        ownership_ = g_bus_own_name_on_connection(connection_, "org.freedesktop.Notifications",
                                                  G_BUS_NAME_OWNER_FLAGS_NONE, onNameAcquired, nullptr, this, nullptr);
        iterateUntil([this] { return owned_; });
    }

    ~FakeNotificationServer() {
        g_bus_unown_name(ownership_);
        g_dbus_connection_unregister_object(connection_, registration_);
    }

    void emit(const char* signal, GVariant* parameters) {
        g_dbus_connection_emit_signal(connection_, nullptr, "/org/freedesktop/Notifications",
                                      "org.freedesktop.Notifications", signal, parameters, nullptr);
        g_dbus_connection_flush_sync(connection_, nullptr, nullptr);
    }

    std::vector<Call> calls;

private:
    static void onNameAcquired(GDBusConnection*, const gchar*, gpointer data) {
        static_cast<FakeNotificationServer*>(data)->owned_ = true;
    }

    static void onMethodCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                             GVariant* parameters, GDBusMethodInvocation* invocation, gpointer data) {
        auto& self = *static_cast<FakeNotificationServer*>(data);
        const gchar* application = nullptr;
        const gchar* summary = nullptr;
        const gchar* body = nullptr;
        GVariantIter* actions = nullptr;
        g_variant_get(parameters, "(&su&s&s&sasa{sv}i)", &application, nullptr, nullptr, &summary, &body, &actions,
                      nullptr, nullptr);
        Call call{application, summary, body, {}};
        const gchar* action = nullptr;
        while (g_variant_iter_loop(actions, "&s", &action)) {
            call.actions.emplace_back(action);
        }
        g_variant_iter_free(actions);
        self.calls.push_back(std::move(call));
        g_dbus_method_invocation_return_value(invocation, g_variant_new("(u)", static_cast<guint32>(self.calls.size())));
    }

    GDBusConnection* connection_;
    guint registration_ = 0;
    guint ownership_ = 0;
    bool owned_ = false;
};

Notification updateNotification() {
    return {"Vornix OS 1.2 is available", "You have version 1.0.", {{"default", "Download"}, {"notes", "Release Notes"}}};
}

class DesktopNotificationsTest : public ::testing::Test {
protected:
    ~DesktopNotificationsTest() override {
        g_object_unref(serverConnection);
        g_object_unref(clientConnection);
    }

    PrivateSessionBus bus;
    GDBusConnection* serverConnection = bus.connect();
    GDBusConnection* clientConnection = bus.connect();
};

TEST_F(DesktopNotificationsTest, PostsTheTitleBodyAndActionsToTheNotificationServer) {
    FakeNotificationServer server(serverConnection);
    DesktopNotifications notifications(clientConnection, "Vornix OS");
    notifications.post(updateNotification(), nullptr);
    ASSERT_TRUE(iterateUntil([&] { return !server.calls.empty(); }));
    const auto& call = server.calls[0];
    EXPECT_EQ(call.applicationName, "Vornix OS");
    EXPECT_EQ(call.summary, "Vornix OS 1.2 is available");
    EXPECT_EQ(call.body, "You have version 1.0.");
    EXPECT_EQ(call.actions, (std::vector<std::string>{"default", "Download", "notes", "Release Notes"}));
}

TEST_F(DesktopNotificationsTest, TheActionThePersonPicksReachesItsHandlerOnce) {
    FakeNotificationServer server(serverConnection);
    DesktopNotifications notifications(clientConnection, "Vornix OS");
    std::vector<std::string> chosen;
    notifications.post(updateNotification(), [&](const std::string& key) { chosen.push_back(key); });
    notifications.post(updateNotification(), [&](const std::string& key) { chosen.push_back("second:" + key); });
    ASSERT_TRUE(iterateUntil([&] { return server.calls.size() == 2; }));
    // Let the replies (ids 1 and 2) arrive before the clicks.
    iterateUntil([] { return !g_main_context_pending(nullptr); });

    server.emit("ActionInvoked", g_variant_new("(us)", 1u, "notes"));
    ASSERT_TRUE(iterateUntil([&] { return chosen.size() == 1; }));
    EXPECT_EQ(chosen[0], "notes");

    server.emit("ActionInvoked", g_variant_new("(us)", 1u, "default"));
    server.emit("ActionInvoked", g_variant_new("(us)", 2u, "default"));
    ASSERT_TRUE(iterateUntil([&] { return chosen.size() == 2; }));
    EXPECT_EQ(chosen[1], "second:default");
    iterateUntil([] { return !g_main_context_pending(nullptr); });
    EXPECT_EQ(chosen.size(), 2u);
}

TEST_F(DesktopNotificationsTest, ADismissedNotificationCallsNoHandler) {
    FakeNotificationServer server(serverConnection);
    DesktopNotifications notifications(clientConnection, "Vornix OS");
    int dismissedCalls = 0;
    bool laterCalled = false;
    notifications.post(updateNotification(), [&](const std::string&) { ++dismissedCalls; });
    notifications.post(updateNotification(), [&](const std::string&) { laterCalled = true; });
    ASSERT_TRUE(iterateUntil([&] { return server.calls.size() == 2; }));
    iterateUntil([] { return !g_main_context_pending(nullptr); });

    server.emit("NotificationClosed", g_variant_new("(uu)", 1u, 2u));
    server.emit("ActionInvoked", g_variant_new("(us)", 1u, "default"));
    server.emit("ActionInvoked", g_variant_new("(us)", 99u, "default"));
    // Signals arrive in order: once the last one is handled, the ones before it have been too.
    server.emit("ActionInvoked", g_variant_new("(us)", 2u, "default"));
    ASSERT_TRUE(iterateUntil([&] { return laterCalled; }));
    EXPECT_EQ(dismissedCalls, 0);
}

TEST_F(DesktopNotificationsTest, WithoutANotificationServerOneLineSaysSo) {
    DesktopNotifications notifications(clientConnection, "Vornix OS");
    StandardOutputPipe output;
    notifications.post(updateNotification(), nullptr);
    ASSERT_TRUE(iterateUntil([&] { return output.read().find('\n') != std::string::npos; }));
    EXPECT_EQ(output.text().rfind("The desktop notification could not be shown: ", 0), 0u) << output.text();
}

TEST(DesktopNotifications, WithoutASessionBusOneLineSaysSo) {
    DesktopNotifications notifications(nullptr, "Vornix OS");
    ::testing::internal::CaptureStdout();
    notifications.post(updateNotification(), nullptr);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "The desktop notification could not be shown: there is no session bus\n");
}

}  // namespace
