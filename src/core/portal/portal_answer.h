#pragma once

#include "core/portal/market_view.h"
#include "core/portal/portal_request.h"
#include "core/sites/site_table.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallowmere {

/// What the built-in portal answers.
struct PortalAnswer {
    std::string type; ///< media type, such as "text/html; charset=utf-8"
    std::string body;
};

/// Pages that the portal hands out as they are.
struct PortalTexts {
    std::string books;    ///< "rr.html", the list of books
    std::string newSites; ///< "newsites.html", the list of new sites
};

/// Where the ticker strip is found, on whatever host.
constexpr std::string_view kTickerStripPath = "/javaticker.html";

/// A page as an answer.
PortalAnswer HtmlAnswer(std::string page);

/// The answer to what the program reads or puts into its own pages, whatever the host: the lists,
/// the logo, chart images, the quotes of a portfolio, a profile and the ticker strip. None for
/// anything else.
std::optional<PortalAnswer> AnswerProgram(const MarketView& market, const PortalRequest& request,
                                          const SiteTable& sites, const PortalTexts& texts);

/// The page of quotes at "/q": that of the strip for several symbols or an index, the one with
/// details for the view "t", else that of one ticker over a period. None without a symbol.
std::optional<std::string> AnswerQuotes(const MarketView& market, const PortalRequest& request);

} // namespace tallowmere
