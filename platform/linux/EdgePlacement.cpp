#include "platform/linux/EdgePlacement.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vornix::platform::linux {

namespace {

bool contains(const ScreenArea& area, ScreenPoint point) {
    return point.x >= area.x && point.y >= area.y && point.x < area.x + area.width && point.y < area.y + area.height;
}

// The edge of `area` nearest to `point` (inside it), and the distance to it.
std::pair<OutputEdge, int> nearestEdge(const ScreenArea& area, ScreenPoint point) {
    const std::array<std::pair<OutputEdge, int>, 4> distances{{
        {OutputEdge::top, point.y - area.y},
        {OutputEdge::bottom, area.y + area.height - 1 - point.y},
        {OutputEdge::left, point.x - area.x},
        {OutputEdge::right, area.x + area.width - 1 - point.x},
    }};
    return *std::min_element(distances.begin(), distances.end(),
                             [](const auto& a, const auto& b) { return a.second < b.second; });
}

bool inTraySquare(const ScreenArea& area, ScreenPoint point) {
    return point.x - area.x < trayReach && point.y - area.y < trayReach;
}

}  // namespace

EdgePlacement placeBesideIcon(std::span<const ScreenArea> outputs, std::optional<ScreenPoint> click, int width,
                              int height) {
    const EdgePlacement corner{};
    if (!click || outputs.empty()) {
        return corner;
    }
    const auto output = std::find_if(outputs.begin(), outputs.end(),
                                     [&](const ScreenArea& area) { return contains(area, *click); });
    if (output == outputs.end() || inTraySquare(*output, *click)) {
        return corner;
    }
    const auto [edge, distance] = nearestEdge(*output, *click);
    if (distance >= panelReach) {
        return corner;
    }
    EdgePlacement placement;
    placement.output = static_cast<int>(output - outputs.begin());
    placement.edge = edge;
    placement.atClick = true;
    // The room across the edge, for the popover and the panel together: the popover stays on the
    // output even when that means reaching over the panel.
    int room = 0;
    if (edge == OutputEdge::top || edge == OutputEdge::bottom) {
        placement.from = OutputEdge::left;
        placement.offset = std::clamp(click->x - output->x - width / 2, 0, std::max(0, output->width - width));
        room = output->height - height;
    } else {
        placement.from = OutputEdge::top;
        placement.offset = std::clamp(click->y - output->y - height / 2, 0, std::max(0, output->height - height));
        room = output->width - width;
    }
    placement.inset = std::clamp(2 * distance + iconClearance, 0, std::max(0, room));
    return placement;
}

}  // namespace vornix::platform::linux
