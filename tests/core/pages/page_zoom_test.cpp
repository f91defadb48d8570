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

} // namespace
} // namespace tallowmere
