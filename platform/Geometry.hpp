#pragma once

namespace vornix::platform {

// Points in the platform's own coordinates (on macOS: origin at the bottom left of the main screen).
struct Point {
    double x = 0.0;
    double y = 0.0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0.0;
    double height = 0.0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    Point origin;
    Size size;
    friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace vornix::platform
