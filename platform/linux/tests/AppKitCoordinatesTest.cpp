#include "platform/linux/AppKitCoordinates.hpp"

#include <gtest/gtest.h>

namespace vornix::platform::linux {
namespace {

constexpr Rect primary{0, 0, 1440, 900};

TEST(AppKitCoordinatesTest, AWindowAtTheTopLeftOfThePrimaryMonitorIsAtItsTopInAppKit) {
    EXPECT_EQ(appKitRectFromGdk({0, 0, 400, 300}, primary), (Rect{0, 600, 400, 300}));
}

TEST(AppKitCoordinatesTest, TheBottomLeftCornerOfThePrimaryMonitorIsTheOrigin) {
    EXPECT_EQ(appKitRectFromGdk({0, 800, 200, 100}, primary), (Rect{0, 0, 200, 100}));
}

TEST(AppKitCoordinatesTest, ConvertingThereAndBackGivesTheSameRectangle) {
    const Rect gdk{37, 112, 640, 480};
    EXPECT_EQ(gdkRectFromAppKit(appKitRectFromGdk(gdk, primary), primary), gdk);
}

TEST(AppKitCoordinatesTest, APrimaryMonitorRightOfAnotherOneMovesTheOrigin) {
    const Rect rightPrimary{1920, 180, 1440, 900};
    EXPECT_EQ(appKitRectFromGdk({1920, 180, 100, 100}, rightPrimary), (Rect{0, 800, 100, 100}));
    EXPECT_EQ(appKitRectFromGdk({0, 0, 1920, 1080}, rightPrimary), (Rect{-1920, 0, 1920, 1080}));
}

TEST(AppKitCoordinatesTest, ATopLeftPointIsFlippedAgainstThePrimaryMonitorsTop) {
    EXPECT_EQ(gdkTopLeftFromAppKit({10, 855}, primary), (Point{10, 45}));
}

}  // namespace
}  // namespace vornix::platform::linux
