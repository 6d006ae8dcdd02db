#pragma once

#include <optional>
#include <span>

namespace vornix::platform::linux {

// Screen pixels as a compositor's outputs are laid out: origin at the top left, y downwards.
struct ScreenPoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

struct ScreenArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const ScreenArea&, const ScreenArea&) = default;
};

enum class OutputEdge { top, bottom, left, right };

// Where the popover goes on a desktop that places it against the edges of an output (a layer
// surface): against `edge` (the compositor keeps it clear of the panel there), and along that
// edge `offset` pixels from `from`, one of the two edges across it.
struct EdgePlacement {
    int output = 0;  // index into the outputs given
    OutputEdge edge = OutputEdge::top;
    OutputEdge from = OutputEdge::right;
    int offset = 0;
    // Whether the click was taken as screen coordinates, which put the popover at the click.
    bool atClick = false;

    friend bool operator==(const EdgePlacement&, const EdgePlacement&) = default;
};

// How far from an output's edge a click on a panel can be: the thickest panels are 64 pixels
// (KDE's largest), with room to spare.
inline constexpr int panelReach = 96;
// The side of the square, at an output's top left corner, of the points that a panel passing
// coordinates relative to its own tray widget (waybar) sends: room for a handful of icons.
inline constexpr int trayReach = 128;

// Places a popover of `width` x `height` beside the tray icon that was clicked at `click`, as
// the panel reported it. A panel passes either screen coordinates (KDE, GNOME, Xfce) or
// coordinates relative to its tray widget (waybar); they are told apart by where the point
// falls: screen coordinates of a click on a panel lie within `panelReach` of an output's edge
// and outside the `trayReach` square at its top left corner, where desktops keep their
// application menu or activities button rather than their tray, while a point relative to a
// tray widget lies inside that square. A click taken as screen coordinates puts the popover against the output edge
// nearest to it, centred on it along that edge and kept on the output. Any other click (or none,
// as when a second launch opens the popover) puts it in the top right corner of the first
// output, under the panel there: where panels that pass relative coordinates put the tray by
// default (waybar's bar is at the top, its tray on the right).
EdgePlacement placeBesideIcon(std::span<const ScreenArea> outputs, std::optional<ScreenPoint> click, int width,
                              int height);

}  // namespace vornix::platform::linux
