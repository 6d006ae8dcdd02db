#pragma once

#include <string>

#include "host/Binding.hpp"
#include "platform/PopoverView.hpp"

namespace vornix::host {

// What a button style is given to draw: the button's label and whether it is being pressed.
struct ButtonStyleConfiguration {
    std::string label;
    bool isPressed = false;
};

// A styled button: its label over a background.
struct StyledButton {
    std::string label;
    platform::ButtonBackground background;
};

// The popover's button style: no chrome, a gray rounded highlight under the pointer.
struct TransparentButton {
    Binding<bool> isHovered;
    Binding<std::string> lastHoveredId;
    std::string id;

    // Gray only while the pointer is over a button and the last button it entered is this one,
    // clear otherwise, clipped to 4 x 4 circular corners. Pressing changes nothing.
    StyledButton makeBody(const ButtonStyleConfiguration& configuration) const;
};

}  // namespace vornix::host
