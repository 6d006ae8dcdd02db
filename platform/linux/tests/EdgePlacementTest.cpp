#include "platform/linux/EdgePlacement.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace vornix::platform::linux {

void PrintTo(const EdgePlacement& placement, std::ostream* out) {
    *out << "{output " << placement.output << ", edge " << static_cast<int>(placement.edge) << ", from "
         << static_cast<int>(placement.from) << ", offset " << placement.offset << ", at click "
         << placement.atClick << ", inset " << placement.inset << "}";
}

}  // namespace vornix::platform::linux

namespace {

using vornix::platform::linux::EdgePlacement;
using vornix::platform::linux::OutputEdge;
using vornix::platform::linux::placeBesideIcon;
using vornix::platform::linux::ScreenArea;
using vornix::platform::linux::ScreenPoint;

const std::vector<ScreenArea> oneOutput{{0, 0, 1920, 1080}};
const EdgePlacement topRightCorner{0, OutputEdge::top, OutputEdge::right, 0, false};

TEST(EdgePlacement, AClickOnABottomPanelPutsItOnTheBottomEdgeCentredOnTheClick) {
    // KDE's default panel: the tray at the bottom right.
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{1500, 1060}, 200, 400),
              (EdgePlacement{0, OutputEdge::bottom, OutputEdge::left, 1400, true, 50}));
}

TEST(EdgePlacement, AClickOnATopPanelPutsItOnTheTopEdgeCentredOnTheClick) {
    // GNOME's top bar: the indicators to the right of the clock.
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{1600, 14}, 200, 400),
              (EdgePlacement{0, OutputEdge::top, OutputEdge::left, 1500, true, 40}));
}

TEST(EdgePlacement, NearAnOutputsEndItStaysOnTheOutput) {
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{1910, 1070}, 200, 400).offset, 1720);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{60, 1070}, 200, 400).offset, 0);
}

TEST(EdgePlacement, AVerticalPanelPutsItOnItsEdgeCentredOnTheClickVertically) {
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{1900, 700}, 200, 400),
              (EdgePlacement{0, OutputEdge::right, OutputEdge::top, 500, true, 50}));
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{20, 900}, 200, 400),
              (EdgePlacement{0, OutputEdge::left, OutputEdge::top, 680, true, 52}));
}

TEST(EdgePlacement, APointRelativeToTheTrayWidgetFallsBackToTheTopRightCorner) {
    // waybar passes the point within its tray widget: the first icon, or one of a few.
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{11, 9}, 200, 400), topRightCorner);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{0, 0}, 200, 400), topRightCorner);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{100, 12}, 200, 400), topRightCorner);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{127, 127}, 200, 400), topRightCorner);
}

TEST(EdgePlacement, JustOutsideTheTraySquareIsAScreenPoint) {
    EXPECT_TRUE(placeBesideIcon(oneOutput, ScreenPoint{128, 10}, 200, 400).atClick);
    EXPECT_TRUE(placeBesideIcon(oneOutput, ScreenPoint{10, 128}, 200, 400).atClick);
}

TEST(EdgePlacement, APointFarFromEveryEdgeIsNoPanelClick) {
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{960, 540}, 200, 400), topRightCorner);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{960, 1080 - 1 - 96}, 200, 400), topRightCorner);
    EXPECT_TRUE(placeBesideIcon(oneOutput, ScreenPoint{960, 1080 - 1 - 95}, 200, 400).atClick);
}

TEST(EdgePlacement, APointOnNoOutputOrNoClickAtAllFallsBackToTheCorner) {
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{2500, 1070}, 200, 400), topRightCorner);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{-5, 500}, 200, 400), topRightCorner);
    EXPECT_EQ(placeBesideIcon(oneOutput, std::nullopt, 200, 400), topRightCorner);
    EXPECT_EQ(placeBesideIcon({}, ScreenPoint{1500, 1060}, 200, 400), topRightCorner);
}

TEST(EdgePlacement, TheOutputClickedIsTheOneItOpensOnInItsOwnCoordinates) {
    const std::vector<ScreenArea> two{{0, 0, 1920, 1080}, {1920, 0, 1280, 800}};
    EXPECT_EQ(placeBesideIcon(two, ScreenPoint{2500, 790}, 200, 400),
              (EdgePlacement{1, OutputEdge::bottom, OutputEdge::left, 480, true, 30}));
    EXPECT_EQ(placeBesideIcon(two, ScreenPoint{3100, 790}, 200, 400),
              (EdgePlacement{1, OutputEdge::bottom, OutputEdge::left, 1080, true, 30}));
    // The second output's own top left corner is a tray square too.
    EXPECT_EQ(placeBesideIcon(two, ScreenPoint{1930, 10}, 200, 400), topRightCorner);
}

TEST(EdgePlacement, OnKdesPanelItOpensBesideTheIconWhereverTheIconIsClicked) {
    // Plasma's default panel along the bottom of a 1280x800 output: 44 pixels thick, its tray
    // icons 22 pixels square and centred across it, so an icon spans rows 767 to 788.
    const std::vector<ScreenArea> output{{0, 0, 1280, 800}};
    const int panelTop = 756;
    const int iconTop = 767;
    const int iconBottom = 788;
    for (int y = iconTop; y <= iconBottom; ++y) {
        const EdgePlacement placement = placeBesideIcon(output, ScreenPoint{1100, y}, 200, 433);
        ASSERT_EQ(placement.edge, OutputEdge::bottom) << "a click at row " << y;
        const int popoverBottom = 800 - placement.inset;
        EXPECT_LE(popoverBottom, iconTop) << "a click at row " << y << " leaves the popover over the icon";
        EXPECT_LE(iconTop - popoverBottom, 48) << "a click at row " << y << " leaves the popover far from the icon";
    }
    // A click at the icon's centre leaves the panel itself clear.
    EXPECT_LE(800 - placeBesideIcon(output, ScreenPoint{1100, 778}, 200, 433).inset, panelTop);
}

TEST(EdgePlacement, TheInsetCountsFromTheEdgeClicked) {
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{1600, 10}, 200, 400).inset, 2 * 10 + 12);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{1600, 1079 - 30}, 200, 400).inset, 2 * 30 + 12);
    EXPECT_EQ(placeBesideIcon(oneOutput, ScreenPoint{5, 600}, 200, 400).inset, 2 * 5 + 12);
}

TEST(EdgePlacement, ThePopoverStaysOnTheOutputRatherThanClearOfThePanel) {
    const std::vector<ScreenArea> low{{0, 0, 1280, 500}};
    EXPECT_EQ(placeBesideIcon(low, ScreenPoint{640, 480}, 200, 460).inset, 40);
    EXPECT_EQ(placeBesideIcon(low, ScreenPoint{640, 480}, 200, 520).inset, 0);
    const std::vector<ScreenArea> narrow{{0, 0, 220, 600}};
    EXPECT_EQ(placeBesideIcon(narrow, ScreenPoint{210, 300}, 200, 400).inset, 20);
}

TEST(EdgePlacement, APopoverWiderThanTheOutputStartsAtItsEdge) {
    const std::vector<ScreenArea> narrow{{0, 0, 150, 600}};
    EXPECT_EQ(placeBesideIcon(narrow, ScreenPoint{100, 590}, 200, 400).offset, 0);
}

}  // namespace
