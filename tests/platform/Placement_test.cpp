#include "platform/display/Placement.h"

#include <gtest/gtest.h>

namespace {

using platform::Placement;

TEST(Placement, KeepsTheShapeAndTakesWholeSteps) {
    struct {
        int windowWidth, windowHeight, left, top, width, height;
    } cases[] = {
        {800, 600, 0, 0, 800, 600},       {1600, 1200, 0, 0, 1600, 1200}, {1920, 1200, 160, 0, 1600, 1200},
        {1920, 1080, 240, 0, 1440, 1080}, // a step of 1 would waste half
        {950, 700, 75, 50, 800, 600},     {400, 600, 0, 150, 400, 300},   {1, 1, 0, 0, 1, 1},
        {1760, 1320, 80, 60, 1600, 1200},
    };
    for (const auto & each : cases) {
        Placement to(800, 600, each.windowWidth, each.windowHeight);
        EXPECT_EQ(to.left(), each.left) << each.windowWidth;
        EXPECT_EQ(to.top(), each.top) << each.windowWidth;
        EXPECT_EQ(to.shownWidth(), each.width) << each.windowWidth;
        EXPECT_EQ(to.shownHeight(), each.height) << each.windowWidth;
        EXPECT_EQ(to.isWhole(), each.width % 800 == 0) << each.windowWidth;
    }
}

// Each pixel of the picture is found again in the window, at every scale from 1.
TEST(Placement, PixelsThereAndBack) {
    for (int size = 320; size < 1400; size += 7) {
        Placement to(320, 240, size, size);
        for (int v = -3; v < 243; v++) {
            ASSERT_EQ(to.toPictureX(to.toWindowX(v)), v) << size;
            ASSERT_EQ(to.toPictureY(to.toWindowY(v)), v) << size;
            ASSERT_EQ(to.toPictureX(to.edgeX(v)), v) << size;
            ASSERT_EQ(to.toPictureX(to.edgeX(v) - 1), v - 1) << size;
            ASSERT_EQ(to.toPictureY(to.edgeY(v) - 1), v - 1) << size;
        }
    }
    Placement to(320, 240, 400, 240);
    EXPECT_EQ(to.left(), 40);
    EXPECT_EQ(to.toPictureX(39), -1); // beside the picture
    EXPECT_EQ(to.toPictureX(360), 320);
}

} // namespace
