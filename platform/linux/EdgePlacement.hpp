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
// surface): against `edge`, `inset` pixels away from it, and along that edge `offset` pixels from
// `from`, one of the two edges across it.
struct EdgePlacement {
    int output = 0;  // index into the outputs given
    OutputEdge edge = OutputEdge::top;
    OutputEdge from = OutputEdge::right;
    int offset = 0;
    // Whether the click was taken as screen coordinates, which put the popover at the click. Then
    // `inset` counts from the output's own edge, past the panel; otherwise it is 0 and the
    // compositor is left to keep the popover clear of the panel's reserved zone.
    bool atClick = false;
    int inset = 0;

    friend bool operator==(const EdgePlacement&, const EdgePlacement&) = default;
};

// How far from an output's edge a click on a panel can be: the thickest panels are 64 pixels
// (KDE's largest), with room to spare.
inline constexpr int panelReach = 96;
// The side of the square, at an output's top left corner, of the points that a panel passing
// coordinates relative to its own tray widget (waybar) sends: room for a handful of icons.
inline constexpr int trayReach = 128;
// Room beyond the panel's far side as estimated from the click, for a click off the icon's centre:
// with KDE's 22 pixel icons on its 44 pixel panel, a click anywhere on the icon leaves the popover
// clear of the icon and at most 48 pixels from it.
inline constexpr int iconClearance = 12;

// Places a popover of `width` x `height` beside the tray icon that was clicked at `click`, as
// the panel reported it. A panel passes either screen coordinates (KDE, GNOME, Xfce) or
// coordinates relative to its tray widget (waybar); they are told apart by where the point
// falls: screen coordinates of a click on a panel lie within `panelReach` of an output's edge
// and outside the `trayReach` square at its top left corner, where desktops keep their
// application menu or activities button rather than their tray, while a point relative to a
// tray widget lies inside that square. A click taken as screen coordinates puts the popover beside
// the output edge nearest to it, centred on it along that edge and kept on the output, and past the
// panel: not every compositor keeps a layer surface clear of every panel (KWin does not for
// Plasma's, which reserves its space otherwise), so the panel's thickness is estimated from the
// click: a tray icon sits centred across its panel, whose far side is thus twice the click's
// distance from the edge, and `iconClearance` beyond it. Any other click (or none,
// as when a second launch opens the popover) puts it in the top right corner of the first
// output, under the panel there: where panels that pass relative coordinates put the tray by
// default (waybar's bar is at the top, its tray on the right).
EdgePlacement placeBesideIcon(std::span<const ScreenArea> outputs, std::optional<ScreenPoint> click, int width,
                              int height);

}  // namespace vornix::platform::linux
