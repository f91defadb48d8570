#include "core/pages/page_zoom.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(PageZoomTest, GoesInStepsAndBack) {
    PageZoom zoom;
    EXPECT_DOUBLE_EQ(zoom.Factor(), 1);
    zoom.In();
    EXPECT_DOUBLE_EQ(zoom.Factor(), 1.1);
    zoom.In();
    EXPECT_DOUBLE_EQ(zoom.Factor(), 1.21);
    zoom.Out();
    zoom.Out();
    EXPECT_DOUBLE_EQ(zoom.Factor(), 1);
    zoom.Out();
    EXPECT_DOUBLE_EQ(zoom.Factor(), 1 / 1.1);
    zoom.Reset();
    EXPECT_DOUBLE_EQ(zoom.Factor(), 1);
}

TEST(PageZoomTest, StaysWithinTheEnginesLimits) {
    PageZoom zoom;
    for (int step = 0; step < 100; ++step)
        zoom.In();
    EXPECT_DOUBLE_EQ(zoom.Factor(), 5);
    for (int step = 0; step < 100; ++step)
        zoom.Out();
    EXPECT_DOUBLE_EQ(zoom.Factor(), 0.25);
}

TEST(PageZoomTest, WholePercentsComeBackToTheUsualSize) {
    struct Case {
        int percent;
        double factor;
    };
    for (const Case& c : {Case{100, 1}, {121, 1.21}, {25, 0.25}, {500, 5}, {0, 0.25}, {9999, 5}})
        EXPECT_DOUBLE_EQ(PageZoom(c.percent).Factor(), c.factor) << c.percent;
    // As it is kept after every step.
    PageZoom zoom;
    for (int step = 0; step < 12; ++step) {
        zoom.In();
        zoom = PageZoom(zoom.Percent());
    }
    for (int step = 0; step < 12; ++step) {
        zoom.Out();
        zoom = PageZoom(zoom.Percent());
    }
    EXPECT_EQ(zoom.Percent(), 100);
    EXPECT_DOUBLE_EQ(zoom.Factor(), 1);
}

TEST(PageZoomTest, KnowsWhatIsPossible) {
    for (const int percent : {25, 100, 121, 500})
        EXPECT_TRUE(PageZoom::IsPossible(percent)) << percent;
    for (const int percent : {-100, 0, 24, 501, 1'000'000'000})
        EXPECT_FALSE(PageZoom::IsPossible(percent)) << percent;
}

} // namespace
} // namespace tallowmere
