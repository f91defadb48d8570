#pragma once

#include "core/portfolio/stored_portfolio.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

/// What portfolios look like as text: on the clipboard and in the menu of the ticker list.
namespace tallowmere {

/// A stored list for people: "IBM|MSFT|" gives "IBM, MSFT", an empty list the empty text. Throws
/// RuntimeError for a damaged list that is too short to have a separator cut off.
std::string PortfolioText(std::string_view storedList);

/// All portfolios that hold tickers, each under "Portfolio #n" and followed by a blank line. Throws
/// like PortfolioText.
std::string AllPortfoliosText(std::span<const StoredPortfolio> portfolios);

/// How the menu `mnuRightTick` of the ticker list stands when it pops up.
struct TickerMenu {
    bool hasTicker;             ///< enables mnuDeleteTick, mnuMoveit, mnuCopyTo and mnuTickNote
    std::string deleteCaption;  ///< mnuDeleteTick
    std::string moveCaption;    ///< mnuMoveit
    std::string copyCaption;    ///< mnuCopyTo
    std::string noteCaption;    ///< mnuTickNote
    std::string note;           ///< the whole note
    std::string noteLine;       ///< mnuTickNotes: its first line, cut for a menu
    bool hasList;               ///< enables mnuCopyIt, mnuMoveAll and mnuCopyAllPorts
    std::string copyAllCaption; ///< mnuCopyIt
    /// Which portfolios may be moved or copied to, portfolio 1 first: all but the current one.
    std::array<bool, kPortfolioCount> targets;
};

/// The menu for the selected ticker, nullptr for none, and its note. `current` is the number of the
/// current portfolio.
TickerMenu MakeTickerMenu(const std::string* ticker, std::string_view note, int current,
                          bool listIsEmpty);

} // namespace tallowmere
