#include "host/TransparentButton.hpp"

namespace vornix::host {

StyledButton TransparentButton::makeBody(const ButtonStyleConfiguration& configuration) const {
    bool highlighted = isHovered.wrappedValue() && lastHoveredId.wrappedValue() == id;
    return {configuration.label,
            {highlighted ? platform::Color::gray : platform::Color::clear, 4.0, 4.0, platform::CornerStyle::circular}};
}

}  // namespace vornix::host
