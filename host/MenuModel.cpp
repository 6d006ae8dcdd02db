#include "host/MenuModel.hpp"

namespace vornix::host {

using platform::MenuItem;
using platform::MenuItemKind;
using platform::RowKind;

std::vector<MenuItem> MenuModel::items(const std::vector<platform::PopoverRow>& rows) {
    std::vector<MenuItem> items;
    for (const auto& row : rows) {
        switch (row.kind) {
            case RowKind::text:
                items.push_back({MenuItemKind::standard, "", row.text, false, false});
                break;
            case RowKind::toggle:
                items.push_back({MenuItemKind::checkmark, std::string(switchId), row.text, true, row.isOn});
                break;
            case RowKind::divider:
                items.push_back({MenuItemKind::separator, "", "", true, false});
                break;
            case RowKind::button:
                items.push_back({MenuItemKind::standard, row.hoverId, row.text, row.isEnabled, false});
                break;
        }
    }
    return items;
}

void MenuModel::choose(const std::string& id, const std::vector<platform::PopoverRow>& rows,
                       platform::PopoverViewEvents& popover) {
    for (const auto& row : rows) {
        if (row.kind == RowKind::toggle && id == switchId) {
            popover.switchToggled(!row.isOn);
            return;
        }
        if (row.kind == RowKind::button && !id.empty() && row.hoverId == id) {
            popover.buttonClicked(id);
            return;
        }
    }
}

}  // namespace vornix::host
