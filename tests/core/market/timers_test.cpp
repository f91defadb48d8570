#include "core/market/timers.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(RefreshCounter, EveryFifthTickReloads) {
    RefreshCounter counter;
    for (int tick = 1; tick <= 100000; ++tick)
        ASSERT_EQ(counter.Tick(), tick % 5 == 0) << tick;
}

TEST(ClubPages, MarkTheirLabels) {
    const auto& pages = ClubPages();
    EXPECT_EQ(pages[0].path, "/members/quickbites.shtml");
    EXPECT_EQ(pages[0].link, 58);
    EXPECT_EQ(pages[1].path, "/members/alacarte.shtml");
    EXPECT_EQ(pages[1].link, 59);
    EXPECT_EQ(pages[2].path, "/members/maincourse.shtml");
    EXPECT_EQ(pages[2].link, 60);
    EXPECT_EQ(kChangedBackground, 12648384U);
}

TEST(ClubWatch, TheFirstTickTakesTheSnapshots) {
    ClubWatch watch;
    EXPECT_FALSE(watch.Take(0, "one"));
    EXPECT_FALSE(watch.Take(1, ""));
    EXPECT_FALSE(watch.Take(2, "three"));
    EXPECT_FALSE(watch.Take(0, "one"));
    EXPECT_FALSE(watch.Take(1, ""));
    EXPECT_FALSE(watch.Take(2, "three"));
}

TEST(ClubWatch, AChangedPageIsMarkedAndComparedWithFromThenOn) {
    ClubWatch watch;
    watch.Take(0, "one");
    watch.Take(1, "two");
    EXPECT_TRUE(watch.Take(0, "one, newer"));
    EXPECT_FALSE(watch.Take(0, "one, newer"));
    EXPECT_FALSE(watch.Take(1, "two"));
    EXPECT_TRUE(watch.Take(0, "one"));
}

TEST(ClubWatch, APageThatCannotBeFetchedDiffers) {
    ClubWatch watch;
    watch.Take(2, "three");
    EXPECT_TRUE(watch.Take(2, ""));
    EXPECT_TRUE(watch.Take(2, "three"));
}

TEST(ClubWatch, APageThatWasNotThereAtTheStartDiffersOnceItIs) {
    ClubWatch watch;
    watch.Take(1, "");
    EXPECT_TRUE(watch.Take(1, "two"));
}

struct EdgeCase {
    int x;
    int width;
    Edge edge;
};

class ActiveEdges : public testing::TestWithParam<EdgeCase> {};

TEST_P(ActiveEdges, ShowTheSideNearThePointer) {
    EXPECT_EQ(EdgeAt(GetParam().x, GetParam().width), GetParam().edge) << GetParam().x;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, ActiveEdges, testing::Values(
    EdgeCase{0,     10000, Edge::Left},
    EdgeCase{89,    10000, Edge::Left},
    EdgeCase{90,    10000, Edge::None},
    EdgeCase{5000,  10000, Edge::None},
    EdgeCase{9700,  10000, Edge::None},
    EdgeCase{9701,  10000, Edge::Right},
    EdgeCase{10000, 10000, Edge::Right},
    EdgeCase{8176,  8475,  Edge::Right},
    EdgeCase{8175,  8475,  Edge::None}));
// clang-format on

TEST(EdgeTimer, WhileHeldThePanelsStayAndTheTimerRuns) {
    EXPECT_EQ(OnEdgeTick(true, true), EdgeTick::KeepRunning);
    EXPECT_EQ(OnEdgeTick(true, false), EdgeTick::KeepRunning);
}

TEST(EdgeTimer, OtherwiseItStopsAndHidesThePanelsOfActiveEdges) {
    EXPECT_EQ(OnEdgeTick(false, true), EdgeTick::HideAndStop);
    EXPECT_EQ(OnEdgeTick(false, false), EdgeTick::Stop);
}

} // namespace
} // namespace tallowmere
