#pragma once

namespace vornix::platform {

// Screen geometry in AppKit's terms: points, origin at the bottom left of the main screen,
// y growing upwards. Backends whose toolkit counts from the top convert at their edge.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

// A rectangle as AppKit gives it: the bottom-left corner and the size.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace vornix::platform
