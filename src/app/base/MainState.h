#pragma once

#include "app/forms/Chip.h"
#include "core/portfolio/portfolio_menu.h"
#include "core/portfolio/stored_portfolio.h"

#include <QString>

#include <array>

namespace tallowmere {

/// The link that a double-click on the ticker list opens when none was used yet.
constexpr int kDefaultLink = 185;

/// What the parts of the main window share while the program runs.
struct MainState {
    int currentPortfolio = 0; ///< 0 until the start has selected one
    /// The index that was selected when a portfolio was left; element 0 is not used.
    std::array<int, kPortfolioCount + 1> rememberedSelection{};
    bool firstStart = false;

    bool clubMember = false;  ///< "SAVersion"
    bool toolTips = true;     ///< "Tips"
    bool activeEdge = false;  ///< "ActiveEdge"
    bool tickerShown = false; ///< "WSCTick"
    QString streamLogin;      ///< "MNL"
    QString streamPassword;   ///< "MNP"

    int lastLink = 0;          ///< index of the link that was used last, 0 for none
    QString lastAddress;       ///< of the last ticker link
    QString lastTicker;        ///< upper case, of the same link
    bool rightPressed = false; ///< the next navigation opens in a separate browser
    bool edgesHeld = false;    ///< the edge panels stay while this is set

    bool templateMode = false;     ///< links yield their addresses with placeholder words
    QString multiLinkPage;         ///< the page that is being recorded
    bool multiLinkPending = false; ///< recording was started from the editor ...
    int multiLinkSlot = 0;         ///< ... for this slot
    int currentCustomSlot = kNoSlot;
    ColorPair copiedColors; ///< text 0: nothing was copied

    PortfolioView portfolioView; ///< what was chosen in the portfolio menu

    static constexpr int kNoSlot = 0;
};

} // namespace tallowmere
