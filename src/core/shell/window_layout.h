#pragma once

namespace tallowmere {

/// Twips to a device-independent pixel: stored positions and the layout rules count in twips.
constexpr int kTwipsPerPixel = 15;

constexpr int kMinimumWidthTwips = 8475;
constexpr int kMinimumHeightTwips = 2000;

/// A number of twips in whole pixels, rounded up, so that no rule's least size is undercut.
constexpr int PixelsFromTwips(int twips) {
    return (twips + kTwipsPerPixel - 1) / kTwipsPerPixel;
}

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// What the layout of the main window depends on; lengths are in pixels.
struct LayoutRequest {
    int width = 0; ///< of the window's body, below the menu bar
    int height = 0;
    bool tickerShown = false;
    bool leftShown = true;
    bool rightShown = true;
    int leftWidth = 0; ///< as the user dragged it, 0 for the width that suits the window
    int rightWidth = 0;
    int portfolioLeast = 0;   ///< what the portfolio controls need for a few rows of the list
    int portfolioHeight = 0;  ///< what they would like
    int portfolioDragged = 0; ///< as the user dragged it, 0 for the height that suits the window
    int linksHeight = 0;      ///< of the links below them when all are in view
    int tabsHeight = 0;       ///< of the row of tabs, 0 without one
    int statusHeight = 0;     ///< of the status line
    int stripHeight = 0;      ///< of the index strip
};

/// Where everything stands in the body of the main window.
struct WindowLayout {
    Rect topBar;
    Rect tickerFrame;
    int tickerWidth = 0; ///< of the ticker pane inside its frame
    Rect portfolio;
    Rect listGrip;
    Rect left;
    Rect leftGrip;
    Rect tabs;
    Rect web;
    Rect rightGrip;
    Rect right;
    Rect status;
    Rect progress; ///< at its full width
    Rect strip;
};

/// How wide the left panel is in the body, 0 while it is not shown. The heights of a request have
/// no part in it.
int LeftPanelWidth(const LayoutRequest& request);

/// Lays out the body: the panes between the two side panels, the status line and the progress bar
/// directly below them, the index strip at the bottom. The portfolio controls have what the links
/// below them leave, or else what they would like but no more than half; never less than they need
/// as long as the body has it.
WindowLayout LayOutWindow(const LayoutRequest& request);

} // namespace tallowmere
