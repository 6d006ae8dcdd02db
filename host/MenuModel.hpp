#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/MenuView.hpp"
#include "platform/PopoverView.hpp"

namespace vornix::host {

// The popover's rows as the status item's menu, so that the menu and the popover never disagree:
// a text is an item that cannot be chosen, the switch a checkmark item, a divider a separator and a
// button an item that does what the button does, enabled as the button is.
class MenuModel {
public:
    // The identifier of the switch's item (the switch has no button identifier of its own).
    static constexpr std::string_view switchId = "launch_on_login";

    static std::vector<platform::MenuItem> items(const std::vector<platform::PopoverRow>& rows);

    // Carries out the choice of the item `id` as the same use of the popover's row would, given
    // the rows shown now: a button is clicked, the switch turned over. An item not shown does
    // nothing.
    static void choose(const std::string& id, const std::vector<platform::PopoverRow>& rows,
                       platform::PopoverViewEvents& popover);
};

}  // namespace vornix::host
