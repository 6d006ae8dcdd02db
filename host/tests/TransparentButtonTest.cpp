#include "host/TransparentButton.hpp"

#include <gtest/gtest.h>

#include "host/State.hpp"

namespace {

using vornix::host::State;
using vornix::host::TransparentButton;
using vornix::platform::Color;
using vornix::platform::CornerStyle;

struct Hover {
    State<bool> isHovered{false};
    State<std::string> lastHoveredId{""};

    TransparentButton button(std::string id) const {
        return {isHovered.projectedValue(), lastHoveredId.projectedValue(), std::move(id)};
    }
};

TEST(TransparentButton, IsGrayOnlyWhenHoveredAndTheLastHoveredButtonIsThisOne) {
    Hover hover;
    hover.isHovered.setWrappedValue(true);
    hover.lastHoveredId.setWrappedValue("about");
    EXPECT_EQ(hover.button("about").makeBody({"About"}).background.color, Color::gray);
    EXPECT_EQ(hover.button("quit").makeBody({"Quit"}).background.color, Color::clear);
}

TEST(TransparentButton, IsClearWhenThePointerIsOverNoButton) {
    Hover hover;
    hover.lastHoveredId.setWrappedValue("about");
    EXPECT_EQ(hover.button("about").makeBody({"About"}).background.color, Color::clear);
}

TEST(TransparentButton, ClipsTheBackgroundToFourByFourCircularCorners) {
    Hover hover;
    auto background = hover.button("about").makeBody({"About"}).background;
    EXPECT_EQ(background.cornerWidth, 4.0);
    EXPECT_EQ(background.cornerHeight, 4.0);
    EXPECT_EQ(background.cornerStyle, CornerStyle::circular);
}

TEST(TransparentButton, KeepsTheLabelAndHasNoPressedStyle) {
    Hover hover;
    hover.isHovered.setWrappedValue(true);
    hover.lastHoveredId.setWrappedValue("quit");
    auto released = hover.button("quit").makeBody({"Quit", false});
    auto pressed = hover.button("quit").makeBody({"Quit", true});
    EXPECT_EQ(released.label, "Quit");
    EXPECT_EQ(pressed.label, "Quit");
    EXPECT_EQ(pressed.background, released.background);
}

}  // namespace
