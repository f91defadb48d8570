#include "core/shell/window_layout.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr int kTopBarTwips = 450;
constexpr int kTickerBottomTwips = 1000;
constexpr int kTickerWidthLossTwips = 2120;
constexpr int kTickerFrameLossTwips = 2360;

constexpr int kGripWidth = 6;
constexpr int kProgressHeight = 4;
constexpr int kNarrowestPanel = 120;
constexpr int kNarrowestPane = 200;

// A fifth of the window suits both a laptop and a wide screen, within what the chips need.
int SuitableWidth(int windowWidth) {
    return std::clamp(windowWidth / 5, 150, 330);
}

int PanelWidth(bool shown, int dragged, int windowWidth) {
    if (!shown)
        return 0;
    const int wanted = dragged > 0 ? dragged : SuitableWidth(windowWidth);
    const int widest = std::max(kNarrowestPanel, (windowWidth - kNarrowestPane) / 2);
    return std::clamp(wanted, kNarrowestPanel, widest);
}

// What the links do not need is the list's.
int PortfolioHeight(const LayoutRequest& request, int bodyHeight) {
    const int shared = bodyHeight - kGripWidth;
    const int suitable =
        std::max(std::min(request.portfolioHeight, shared / 2), shared - request.linksHeight);
    const int wanted = request.portfolioDragged > 0 ? request.portfolioDragged : suitable;
    return std::max(0, std::min(std::max(wanted, request.portfolioLeast), shared));
}

} // namespace

int LeftPanelWidth(const LayoutRequest& request) {
    return PanelWidth(request.leftShown, request.leftWidth, request.width);
}

WindowLayout LayOutWindow(const LayoutRequest& request) {
    WindowLayout layout;
    const int topBarHeight = kTopBarTwips / kTwipsPerPixel;
    const int top = request.tickerShown ? PixelsFromTwips(kTickerBottomTwips) : topBarHeight;
    const int stripTop = std::max(top, request.height - request.stripHeight);
    const int bodyHeight = stripTop - top;
    layout.topBar = {0, 0, request.width, topBarHeight};
    layout.strip = {0, stripTop, request.width, request.stripHeight};

    const int leftWidth = LeftPanelWidth(request);
    const int rightWidth = PanelWidth(request.rightShown, request.rightWidth, request.width);
    const int portfolioHeight = PortfolioHeight(request, bodyHeight);
    layout.portfolio = {0, top, leftWidth, portfolioHeight};
    layout.listGrip = {0, top + portfolioHeight, leftWidth, kGripWidth};
    const int linksTop = layout.listGrip.y + kGripWidth;
    layout.left = {0, linksTop, leftWidth, std::max(0, stripTop - linksTop)};
    layout.leftGrip = {leftWidth, top, kGripWidth, bodyHeight};
    layout.right = {request.width - rightWidth, top, rightWidth, bodyHeight};
    layout.rightGrip = {layout.right.x - kGripWidth, top, kGripWidth, bodyHeight};

    const int webLeft = leftWidth + kGripWidth;
    const int webWidth = std::max(0, layout.rightGrip.x - webLeft);
    const int paneHeight = std::max(0, bodyHeight - request.statusHeight - kProgressHeight);
    const int tabsHeight = std::min(request.tabsHeight, paneHeight);
    layout.tabs = {webLeft, top, webWidth, tabsHeight};
    layout.web = {webLeft, top + tabsHeight, webWidth, paneHeight - tabsHeight};
    layout.status = {webLeft, top + paneHeight, webWidth, request.statusHeight};
    layout.progress = {webLeft, layout.status.y + request.statusHeight, webWidth, kProgressHeight};

    const int widthTwips = request.width * kTwipsPerPixel;
    layout.tickerWidth = std::max(0, (widthTwips - kTickerWidthLossTwips) / kTwipsPerPixel);
    const int frameWidth = std::max(0, (widthTwips - kTickerFrameLossTwips) / kTwipsPerPixel);
    layout.tickerFrame = {(request.width - frameWidth) / 2, topBarHeight, frameWidth,
                          PixelsFromTwips(kTickerBottomTwips) - topBarHeight};
    return layout;
}

} // namespace tallowmere
