// Runs on a display (CTest starts it under xvfb-run): without a tray on its bus, the item also
// shows an XEmbed icon.
#include "platform/linux/StatusNotifierItem.hpp"

#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/tests/PrivateSessionBus.hpp"

namespace vornix::platform::linux {
namespace {

using testing::iterateUntil;
using testing::PrivateSessionBus;

bool hasOwner(GDBusConnection* connection, const std::string& name) {
    GVariant* answer = g_dbus_connection_call_sync(connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", "NameHasOwner",
                                                   g_variant_new("(s)", name.c_str()), G_VARIANT_TYPE("(b)"),
                                                   G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    gboolean owned = FALSE;
    g_variant_get(answer, "(b)", &owned);
    g_variant_unref(answer);
    return owned;
}

// What a panel does: calls a method of the item without waiting for it; `answered` counts replies.
void callItem(GDBusConnection* panel, const std::string& item, const char* method, GVariant* parameters,
              int& answered) {
    g_dbus_connection_call(
        panel, item.c_str(), "/StatusNotifierItem", "org.kde.StatusNotifierItem", method, parameters, nullptr,
        G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
        [](GObject* connection, GAsyncResult* result, gpointer count) {
            if (GVariant* answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr)) {
                g_variant_unref(answer);
                ++*static_cast<int*>(count);
            }
        },
        &answered);
}

TEST(StatusNotifierItem, TheActivationTokenAPanelProvidesBeforeAClickServesThatClickOnly) {
    ASSERT_TRUE(gtk_init_check(nullptr, nullptr)) << "no display";
    PrivateSessionBus bus;
    setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
    std::vector<std::string> tokens;
    StatusNotifierItem* clicked = nullptr;
    StatusNotifierItem item("test-item", "Test", "/MenuBar",
                            [&](GdkRectangle) { tokens.push_back(clicked->takeActivationToken()); });
    clicked = &item;
    GDBusConnection* shared = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    g_dbus_connection_set_exit_on_close(shared, FALSE);
    g_object_unref(shared);

    GDBusConnection* panel = bus.connect();
    ASSERT_TRUE(iterateUntil([&] { return hasOwner(panel, item.busName()); }));
    int answered = 0;
    callItem(panel, item.busName(), "ProvideXdgActivationToken", g_variant_new("(s)", "token-1"), answered);
    callItem(panel, item.busName(), "Activate", g_variant_new("(ii)", 5, 6), answered);
    callItem(panel, item.busName(), "Activate", g_variant_new("(ii)", 7, 8), answered);
    ASSERT_TRUE(iterateUntil([&] { return answered == 3; }));
    EXPECT_EQ(tokens, (std::vector<std::string>{"token-1", ""}));
    g_object_unref(panel);
}

}  // namespace
}  // namespace vornix::platform::linux
