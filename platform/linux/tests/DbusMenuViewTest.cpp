#include "platform/linux/DbusMenuView.hpp"

#include <gio/gio.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vornix::platform::linux {
namespace {

constexpr const char* menuInterface = "com.canonical.dbusmenu";

// Runs the thread's default main context until `done` holds or 10 s pass.
template <class Predicate>
bool iterateUntil(Predicate done) {
    const gint64 deadline = g_get_monotonic_time() + 10 * G_USEC_PER_SEC;
    while (!done()) {
        if (g_get_monotonic_time() > deadline) {
            return false;
        }
        g_main_context_iteration(nullptr, FALSE);
        g_usleep(1000);
    }
    return true;
}

// Lets the menu finish what it does from the main loop (its signals go out from there).
void settle() {
    const gint64 until = g_get_monotonic_time() + G_USEC_PER_SEC / 5;
    while (g_get_monotonic_time() < until) {
        g_main_context_iteration(nullptr, FALSE);
        g_usleep(1000);
    }
}

class RecordingEvents : public MenuViewEvents {
public:
    void menuItemClicked(const std::string& id) override { clicked.push_back(id); }
    std::vector<std::string> clicked;
};

// One entry of a GetLayout answer, in short.
struct Entry {
    std::string label;
    std::optional<std::string> type;
    std::optional<bool> enabled;
    std::optional<std::string> toggleType;
    std::optional<int> toggleState;
    friend bool operator==(const Entry&, const Entry&) = default;
};

// A panel of the test's own: a second connection to the bus, which reads and uses the menu the
// view exports on the process's session bus connection, and counts the menu's signals.
class DbusMenuViewTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        // A bus of the test's own, which activates no service, as the process's session bus.
        bus_ = g_test_dbus_new(G_TEST_DBUS_NONE);
        g_test_dbus_up(bus_);
    }
    static void TearDownTestSuite() {
        g_test_dbus_down(bus_);
        g_clear_object(&bus_);
    }

    DbusMenuViewTest() {
        GDBusConnection* own = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
        owner_ = g_dbus_connection_get_unique_name(own);
        g_object_unref(own);
        panel_ = g_dbus_connection_new_for_address_sync(
            g_test_dbus_get_bus_address(bus_),
            static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                              G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
            nullptr, nullptr, nullptr);
        subscription_ = g_dbus_connection_signal_subscribe(panel_, owner_.c_str(), menuInterface, nullptr,
                                                           DbusMenuView::objectPath, nullptr,
                                                           G_DBUS_SIGNAL_FLAGS_NONE, onSignal, this, nullptr);
        view_.setEvents(&events_);
    }
    ~DbusMenuViewTest() override {
        g_dbus_connection_signal_unsubscribe(panel_, subscription_);
        g_object_unref(panel_);
    }

    static void onSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name, GVariant*,
                         gpointer self) {
        static_cast<DbusMenuViewTest*>(self)->signals_.emplace_back(name);
    }

    // The menu's answer to `method`, once the main loop has served it.
    GVariant* call(const char* method, GVariant* parameters) {
        struct Answer {
            GVariant* value = nullptr;
            bool done = false;
        } answer;
        g_dbus_connection_call(
            panel_, owner_.c_str(), DbusMenuView::objectPath, menuInterface, method, parameters, nullptr,
            G_DBUS_CALL_FLAGS_NONE, 10000, nullptr,
            [](GObject* connection, GAsyncResult* result, gpointer data) {
                auto& answer = *static_cast<Answer*>(data);
                answer.value = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr);
                answer.done = true;
            },
            &answer);
        EXPECT_TRUE(iterateUntil([&] { return answer.done; }));
        return answer.value;
    }

    // The menu's items, as GetLayout gives them: (id, entry) each.
    std::vector<std::pair<int, Entry>> layout() {
        GVariant* answer = call("GetLayout", g_variant_new("(ii@as)", 0, -1, g_variant_new_strv(nullptr, 0)));
        std::vector<std::pair<int, Entry>> items;
        if (!answer) {
            return items;
        }
        GVariant* root = g_variant_get_child_value(answer, 1);
        GVariant* children = g_variant_get_child_value(root, 2);
        for (gsize i = 0; i < g_variant_n_children(children); ++i) {
            GVariant* boxed = g_variant_get_child_value(children, i);
            GVariant* child = g_variant_get_variant(boxed);
            gint32 id = 0;
            GVariant* properties = nullptr;
            g_variant_get_child(child, 0, "i", &id);
            g_variant_get_child(child, 1, "@a{sv}", &properties);
            GVariantDict dict;
            g_variant_dict_init(&dict, properties);
            Entry entry;
            const gchar* text = nullptr;
            gboolean flag = FALSE;
            gint32 number = 0;
            if (g_variant_dict_lookup(&dict, "label", "&s", &text)) {
                entry.label = text;
            }
            if (g_variant_dict_lookup(&dict, "type", "&s", &text)) {
                entry.type = text;
            }
            if (g_variant_dict_lookup(&dict, "enabled", "b", &flag)) {
                entry.enabled = flag;
            }
            if (g_variant_dict_lookup(&dict, "toggle-type", "&s", &text)) {
                entry.toggleType = text;
            }
            if (g_variant_dict_lookup(&dict, "toggle-state", "i", &number)) {
                entry.toggleState = number;
            }
            items.emplace_back(id, entry);
            g_variant_dict_clear(&dict);
            g_variant_unref(properties);
            g_variant_unref(child);
            g_variant_unref(boxed);
        }
        g_variant_unref(children);
        g_variant_unref(root);
        g_variant_unref(answer);
        return items;
    }

    std::vector<Entry> entries() {
        std::vector<Entry> shown;
        for (auto& [id, entry] : layout()) {
            shown.push_back(entry);
        }
        return shown;
    }

    int idOf(const std::string& label) {
        for (auto& [id, entry] : layout()) {
            if (entry.label == label) {
                return id;
            }
        }
        return -1;
    }

    int count(const std::string& name) const { return static_cast<int>(std::count(signals_.begin(), signals_.end(), name)); }

    static GTestDBus* bus_;
    std::string owner_;
    GDBusConnection* panel_ = nullptr;
    guint subscription_ = 0;
    std::vector<std::string> signals_;
    RecordingEvents events_;
    DbusMenuView view_;
};

GTestDBus* DbusMenuViewTest::bus_ = nullptr;

const std::vector<MenuItem> items{
    {MenuItemKind::checkmark, "launch_on_login", "Launch on Login", true, false},
    {MenuItemKind::separator, "", "", true, false},
    {MenuItemKind::standard, "", "ada_l@example.com", false, false},
    {MenuItemKind::standard, "quit", "Quit", true, false},
};

TEST_F(DbusMenuViewTest, ThePanelReadsTheItemsTheirKindsAndStates) {
    view_.render(items);
    settle();
    const std::vector<Entry> expected{
        {"Launch on Login", std::nullopt, std::nullopt, "checkmark", 0},
        {"", "separator", std::nullopt, std::nullopt, std::nullopt},
        // The underscore of the text is doubled: alone it would mark an access key.
        {"ada__l@example.com", std::nullopt, false, std::nullopt, std::nullopt},
        {"Quit", std::nullopt, std::nullopt, std::nullopt, std::nullopt},
    };
    EXPECT_EQ(entries(), expected);
}

TEST_F(DbusMenuViewTest, ChangesInPlaceSendOnlyTheChangedPropertiesAndNoNewLayout) {
    view_.render(items);
    settle();
    // A panel reads the menu before it is told of changes to its items.
    ASSERT_EQ(entries().size(), items.size());
    const int layouts = count("LayoutUpdated");
    auto changed = items;
    changed[0].isChecked = true;
    changed[3].isEnabled = false;
    view_.render(changed);
    ASSERT_TRUE(iterateUntil([&] { return count("ItemsPropertiesUpdated") > 0; }));
    settle();
    EXPECT_EQ(count("LayoutUpdated"), layouts);
    const auto shown = entries();
    EXPECT_EQ(shown[0].toggleState, 1);
    EXPECT_EQ(shown[3].enabled, false);
}

TEST_F(DbusMenuViewTest, TheSameItemsAgainSendNothing) {
    view_.render(items);
    settle();
    ASSERT_EQ(entries().size(), items.size());
    settle();
    const auto before = signals_.size();
    view_.render(items);
    settle();
    EXPECT_EQ(signals_.size(), before);
}

TEST_F(DbusMenuViewTest, OtherItemsGiveTheMenuANewLayout) {
    view_.render(items);
    settle();
    const int layouts = count("LayoutUpdated");
    auto other = items;
    other[3] = {MenuItemKind::standard, "sign_out", "Sign Out...", true, false};
    view_.render(other);
    ASSERT_TRUE(iterateUntil([&] { return count("LayoutUpdated") > layouts; }));
    EXPECT_EQ(entries().at(3).label, "Sign Out...");
}

TEST_F(DbusMenuViewTest, AClickIsReportedWithTheItemsIdentifierFromTheMainLoop) {
    view_.render(items);
    settle();
    const int quit = idOf("Quit");
    ASSERT_GE(quit, 0);
    GVariant* answer = call("Event", g_variant_new("(isvu)", quit, "clicked", g_variant_new_string(""), 0u));
    ASSERT_NE(answer, nullptr);
    g_variant_unref(answer);
    ASSERT_TRUE(iterateUntil([&] { return !events_.clicked.empty(); }));
    EXPECT_EQ(events_.clicked, std::vector<std::string>{"quit"});
}

TEST_F(DbusMenuViewTest, WithNobodyListeningAClickIsDropped) {
    view_.render(items);
    settle();
    view_.setEvents(nullptr);
    GVariant* answer =
        call("Event", g_variant_new("(isvu)", idOf("Quit"), "clicked", g_variant_new_string(""), 0u));
    ASSERT_NE(answer, nullptr);
    g_variant_unref(answer);
    settle();
    EXPECT_TRUE(events_.clicked.empty());
}

}  // namespace
}  // namespace vornix::platform::linux
