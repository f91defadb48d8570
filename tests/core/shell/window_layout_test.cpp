#include "core/shell/window_layout.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

LayoutRequest RequestOf(int width, int height) {
    LayoutRequest request;
    request.width = width;
    request.height = height;
    request.portfolioHeight = 200;
    request.statusHeight = 20;
    request.stripHeight = 24;
    return request;
}

TEST(WindowLayout, TheTopOfThePanesIs450TwipsWithoutTheTickerStrip) {
    EXPECT_EQ(LayOutWindow(RequestOf(1280, 900)).web.y * kTwipsPerPixel, 450);
}

TEST(WindowLayout, TheTickerStripPushesThePanesTo1000Twips) {
    LayoutRequest request = RequestOf(1280, 900);
    request.tickerShown = true;
    const WindowLayout layout = LayOutWindow(request);
    EXPECT_EQ(layout.web.y, PixelsFromTwips(1000));
    EXPECT_EQ(layout.tickerWidth, (1280 * 15 - 2120) / 15);
    EXPECT_EQ(layout.tickerFrame.width, (1280 * 15 - 2360) / 15);
}

TEST(WindowLayout, ARowOfTabsTakesItsHeightFromThePanesAlone) {
    LayoutRequest request = RequestOf(1280, 900);
    const WindowLayout without = LayOutWindow(request);
    EXPECT_EQ(without.tabs.height, 0);
    request.tabsHeight = 26;
    const WindowLayout with = LayOutWindow(request);
    EXPECT_EQ(with.tabs, (Rect{without.web.x, without.web.y, without.web.width, 26}));
    EXPECT_EQ(with.web.y, without.web.y + 26);
    EXPECT_EQ(with.web.height, without.web.height - 26);
    EXPECT_EQ(with.status, without.status);
    EXPECT_EQ(with.left, without.left);
    // There is no room for it in a window without room for pages.
    request.height = 60;
    EXPECT_GE(LayOutWindow(request).web.height, 0);
}

TEST(WindowLayout, ThePanesLieBetweenTheSidePanelsAndTheStatusLines) {
    for (const auto& [width, height] :
         {std::pair{565, 134}, {667, 567}, {1280, 900}, {1600, 1000}, {1920, 1080}}) {
        const WindowLayout layout = LayOutWindow(RequestOf(width, height));
        EXPECT_GE(layout.web.x, layout.left.x + layout.left.width) << width;
        EXPECT_LE(layout.web.x + layout.web.width, layout.right.x) << width;
        EXPECT_GE(layout.web.width, 200) << width;
        EXPECT_EQ(layout.status.x, layout.web.x) << width;
        EXPECT_EQ(layout.status.width, layout.web.width) << width;
        EXPECT_EQ(layout.status.y, layout.web.y + layout.web.height) << width;
        EXPECT_EQ(layout.progress.x, layout.web.x) << width;
        EXPECT_EQ(layout.strip.width, width);
        EXPECT_GE(layout.left.height, 0) << width;
    }
}

TEST(WindowLayout, APanelThatIsNotShownGivesItsWidthToThePanes) {
    LayoutRequest request = RequestOf(1280, 900);
    const int before = LayOutWindow(request).web.width;
    request.leftShown = false;
    request.rightShown = false;
    const WindowLayout layout = LayOutWindow(request);
    EXPECT_EQ(layout.left.width, 0);
    EXPECT_EQ(layout.right.width, 0);
    EXPECT_GT(layout.web.width, before + 300);
}

TEST(WindowLayout, ADraggedPanelKeepsRoomForThePanes) {
    LayoutRequest request = RequestOf(700, 600);
    request.leftWidth = 5000;
    request.rightWidth = 1;
    const WindowLayout layout = LayOutWindow(request);
    EXPECT_LE(layout.left.width, 250);
    EXPECT_GE(layout.right.width, 120);
    EXPECT_GE(layout.web.width, 200);
}

/// The heights of the left panel in a body that leaves 600 pixels below the top bar: 594 for the
/// list and the links, and a grip of 6 between them.
struct LeftCase {
    const char* name;
    int least, usual, dragged, links; ///< what is asked for
    int portfolio;                    ///< what the portfolio controls get
};

class LeftPanel : public testing::TestWithParam<LeftCase> {};

TEST_P(LeftPanel, IsSharedByTheListAndTheLinks) {
    LayoutRequest request = RequestOf(1280, 654);
    request.portfolioLeast = GetParam().least;
    request.portfolioHeight = GetParam().usual;
    request.portfolioDragged = GetParam().dragged;
    request.linksHeight = GetParam().links;
    const WindowLayout layout = LayOutWindow(request);
    EXPECT_EQ(layout.portfolio.height, GetParam().portfolio);
    EXPECT_EQ(layout.listGrip, (Rect{0, 30 + GetParam().portfolio, layout.left.width, 6}));
    EXPECT_EQ(layout.left.y, layout.listGrip.y + 6);
    EXPECT_EQ(layout.left.y + layout.left.height, layout.strip.y);
}

INSTANTIATE_TEST_SUITE_P(
    Heights, LeftPanel,
    testing::Values(LeftCase{"LinksLeaveMoreThanIsLiked", 150, 200, 0, 244, 350},
                    LeftCase{"LinksLeaveLess", 150, 200, 0, 450, 200},
                    LeftCase{"LinksLeaveNothing", 150, 200, 0, 2000, 200},
                    LeftCase{"NoMoreThanHalfIsTakenFromTheLinks", 150, 400, 0, 2000, 297},
                    LeftCase{"TheLeastIsTakenEvenSo", 320, 400, 0, 2000, 320},
                    LeftCase{"Dragged", 150, 200, 500, 244, 500},
                    LeftCase{"DraggedBelowTheLeast", 150, 200, 1, 244, 150},
                    LeftCase{"DraggedBeyondTheEnd", 150, 200, 5000, 244, 594}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(WindowLayout, ABodyThatIsTooLowForTheListGivesItAllThereIs) {
    LayoutRequest request = RequestOf(565, 134);
    request.portfolioLeast = 150;
    const WindowLayout layout = LayOutWindow(request);
    EXPECT_EQ(layout.portfolio.height, 134 - 30 - 24 - 6);
    EXPECT_EQ(layout.left.height, 0);
}

TEST(WindowLayout, TheWidthOfTheLeftPanelIsKnownBeforeItsHeights) {
    for (const bool shown : {true, false}) {
        LayoutRequest request = RequestOf(1280, 900);
        request.leftShown = shown;
        request.leftWidth = 200;
        EXPECT_EQ(LeftPanelWidth(request), shown ? 200 : 0);
        EXPECT_EQ(LayOutWindow(request).left.width, LeftPanelWidth(request));
    }
}

} // namespace
} // namespace tallowmere
