#pragma once

#include <string>
#include <vector>

namespace vornix::platform {

// The look of a modal alert, with the platform's own values (NSAlertStyle).
enum class AlertStyle { warning = 0, informational = 1, critical = 2 };

// The answer of a modal alert: 1000 for the first button, 1001 for the second, and so on.
using ModalResponse = long;
inline constexpr ModalResponse alertFirstButtonReturn = 1000;
inline constexpr ModalResponse alertSecondButtonReturn = 1001;
inline constexpr ModalResponse alertThirdButtonReturn = 1002;

// What a modal alert shows. With no buttons the platform shows one "OK" button.
struct Alert {
    std::string messageText{};
    std::string informativeText{};
    AlertStyle alertStyle = AlertStyle::warning;
    std::vector<std::string> buttons{};

    void addButton(std::string title) { buttons.push_back(std::move(title)); }

    friend bool operator==(const Alert&, const Alert&) = default;
};

}  // namespace vornix::platform
