#pragma once

#include "core/portfolio/keyed_store.h"
#include "core/portfolio/stored_portfolio.h"
#include "core/sites/site_table.h"
#include "core/text/date.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The report of all portfolios with the notes on their tickers, as a page and on paper.
namespace tallowmere {

/// The page: each portfolio that holds tickers, each ticker a link to its quotes. Names, tickers
/// and notes are shown as they are, whatever characters they hold.
std::string ReportPage(std::span<const StoredPortfolio> portfolios, const NoteIndex& notes,
                       Date today, const SiteTable& sites);

constexpr std::string_view kPrinterFont = "CourierNew";

/// One line on paper; an empty text leaves a line free.
struct PrintedLine {
    std::string text;
    int points; ///< size of the font
    bool bold;
    friend bool operator==(const PrintedLine&, const PrintedLine&) = default;
};

/// The lines of the printed report, from the first to the last.
std::vector<PrintedLine> PrintedReport(std::span<const StoredPortfolio> portfolios,
                                       const NoteIndex& notes, Date today);

} // namespace tallowmere
