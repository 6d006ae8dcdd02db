#pragma once

#include <string>
#include <vector>

namespace vornix::platform {

// A menu as the desktop's panel draws it: the status item's rows as menu items, described as data
// so that the core decides what the menu holds and the backend only publishes it.

enum class MenuItemKind { standard, checkmark, separator };

struct MenuItem {
    MenuItemKind kind = MenuItemKind::standard;
    // What a click on the item reports; empty for an item that cannot be clicked.
    std::string id;
    std::string label;
    bool isEnabled = true;
    // A checkmark item: whether it is ticked.
    bool isChecked = false;
    friend bool operator==(const MenuItem&, const MenuItem&) = default;
};

// What the user does in a menu, reported to the core.
class MenuViewEvents {
public:
    virtual ~MenuViewEvents() = default;

    // The user chose the item with this identifier.
    virtual void menuItemClicked(const std::string& id) = 0;
};

class MenuView {
public:
    virtual ~MenuView() = default;

    // Replaces what the menu holds.
    virtual void render(const std::vector<MenuItem>& items) = 0;
    // Where the menu reports the user's choices from now on; null stops the reports.
    virtual void setEvents(MenuViewEvents* events) = 0;
};

}  // namespace vornix::platform
