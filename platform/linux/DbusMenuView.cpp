#include "platform/linux/DbusMenuView.hpp"

#include <utility>

#include <gio/gio.h>

namespace vornix::platform::linux {

namespace {

// In a menu label an underscore marks the access key; the texts shown (an e-mail address) are
// taken as they are.
std::string menuLabel(const std::string& text) {
    std::string label;
    for (const char c : text) {
        label += c;
        if (c == '_') {
            label += '_';
        }
    }
    return label;
}

bool sameShape(const std::vector<MenuItem>& a, const std::vector<MenuItem>& b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].kind != b[i].kind || a[i].id != b[i].id) {
            return false;
        }
    }
    return true;
}

}  // namespace

DbusMenuView::DbusMenuView() {
    // Without a session bus no panel can read the menu: there is nothing to export it on.
    if (GDBusConnection* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr)) {
        server_ = dbusmenu_server_new(objectPath);
        g_object_unref(bus);
    }
}

DbusMenuView::~DbusMenuView() {
    if (deliverySource_) {
        g_source_remove(deliverySource_);
    }
    g_clear_object(&root_);
    g_clear_object(&server_);
}

void DbusMenuView::render(const std::vector<MenuItem>& items) {
    if (!server_) {
        return;
    }
    if (!root_ || !sameShape(items, shown_)) {
        rebuild(items);
        return;
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        apply(entries_[i], items[i], &shown_[i]);
    }
    shown_ = items;
}

void DbusMenuView::rebuild(const std::vector<MenuItem>& items) {
    DbusmenuMenuitem* root = dbusmenu_menuitem_new();
    entries_.clear();
    for (const auto& item : items) {
        DbusmenuMenuitem* entry = dbusmenu_menuitem_new();
        apply(entry, item, nullptr);
        g_object_set_data_full(G_OBJECT(entry), "vornix-id", g_strdup(item.id.c_str()), g_free);
        g_signal_connect(entry, DBUSMENU_MENUITEM_SIGNAL_ITEM_ACTIVATED, G_CALLBACK(onActivated), this);
        dbusmenu_menuitem_child_append(root, entry);
        entries_.push_back(entry);
        g_object_unref(entry);
    }
    dbusmenu_server_set_root(server_, root);
    g_clear_object(&root_);
    root_ = root;
    shown_ = items;
}

void DbusMenuView::apply(DbusmenuMenuitem* item, const MenuItem& wanted, const MenuItem* shown) {
    if (wanted.kind == MenuItemKind::separator) {
        if (!shown) {
            dbusmenu_menuitem_property_set(item, DBUSMENU_MENUITEM_PROP_TYPE, DBUSMENU_CLIENT_TYPES_SEPARATOR);
        }
        return;
    }
    if (!shown || shown->label != wanted.label) {
        dbusmenu_menuitem_property_set(item, DBUSMENU_MENUITEM_PROP_LABEL, menuLabel(wanted.label).c_str());
    }
    if (!shown || shown->isEnabled != wanted.isEnabled) {
        dbusmenu_menuitem_property_set_bool(item, DBUSMENU_MENUITEM_PROP_ENABLED, wanted.isEnabled);
    }
    if (wanted.kind == MenuItemKind::checkmark) {
        if (!shown) {
            dbusmenu_menuitem_property_set(item, DBUSMENU_MENUITEM_PROP_TOGGLE_TYPE, DBUSMENU_MENUITEM_TOGGLE_CHECK);
        }
        if (!shown || shown->isChecked != wanted.isChecked) {
            dbusmenu_menuitem_property_set_int(item, DBUSMENU_MENUITEM_PROP_TOGGLE_STATE,
                                               wanted.isChecked ? DBUSMENU_MENUITEM_TOGGLE_STATE_CHECKED
                                                                : DBUSMENU_MENUITEM_TOGGLE_STATE_UNCHECKED);
        }
    }
}

void DbusMenuView::onActivated(DbusmenuMenuitem* item, guint, gpointer self) {
    auto& view = *static_cast<DbusMenuView*>(self);
    view.pendingChoices_.emplace_back(static_cast<const char*>(g_object_get_data(G_OBJECT(item), "vornix-id")));
    if (!view.deliverySource_) {
        view.deliverySource_ = g_idle_add(deliverChoices, self);
    }
}

gboolean DbusMenuView::deliverChoices(gpointer self) {
    auto& view = *static_cast<DbusMenuView*>(self);
    view.deliverySource_ = 0;
    for (const auto& id : std::exchange(view.pendingChoices_, {})) {
        if (view.events_) {
            view.events_->menuItemClicked(id);
        }
    }
    return G_SOURCE_REMOVE;
}

}  // namespace vornix::platform::linux
