#pragma once

#include <string>
#include <vector>

#include <libdbusmenu-glib/client.h>
#include <libdbusmenu-glib/menuitem.h>
#include <libdbusmenu-glib/server.h>

#include "platform/MenuView.hpp"

namespace vornix::platform::linux {

// The status item's menu published on the session bus as a com.canonical.dbusmenu menu, which
// the panels draw themselves when the item names it. A render with the same items in the same
// places changes their properties (ItemsPropertiesUpdated); any other gives the menu a new layout
// (LayoutUpdated).
class DbusMenuView : public MenuView {
public:
    // The object path the menu is exported at.
    static constexpr const char* objectPath = "/MenuBar";

    DbusMenuView();
    ~DbusMenuView() override;
    DbusMenuView(const DbusMenuView&) = delete;
    DbusMenuView& operator=(const DbusMenuView&) = delete;

    void render(const std::vector<MenuItem>& items) override;
    void setEvents(MenuViewEvents* events) override { events_ = events; }

private:
    static void onActivated(DbusmenuMenuitem* item, guint timestamp, gpointer self);
    static gboolean deliverChoices(gpointer self);

    void rebuild(const std::vector<MenuItem>& items);
    static void apply(DbusmenuMenuitem* item, const MenuItem& wanted, const MenuItem* shown);

    DbusmenuServer* server_ = nullptr;
    DbusmenuMenuitem* root_ = nullptr;
    std::vector<DbusmenuMenuitem*> entries_;
    std::vector<MenuItem> shown_;
    MenuViewEvents* events_ = nullptr;
    // Choices are handed on from the main loop, after the menu's own handling of the click is done,
    // since what they do may give the menu a new layout.
    std::vector<std::string> pendingChoices_;
    guint deliverySource_ = 0;
};

}  // namespace vornix::platform::linux
