#pragma once

#include "core/links/catalogue.h"
#include "core/portal/market_view.h"
#include "core/portal/portal_request.h"

#include <string>
#include <string_view>
#include <vector>

/// The portal's pages for people.
namespace tallowmere {

/// The page of a catalogue row: its caption and tooltip, the ticker or tickers with their prices
/// (none for a row without), and the address that was asked for.
std::string LinkPage(const MarketView& market, const LinkRow& row,
                     const std::vector<std::string>& symbols, const PortalRequest& request);

/// The quote page of one ticker, with a chart of the period "1d", "5d", "3m" or "1y".
std::string QuotePage(const MarketView& market, std::string_view symbol, std::string_view period,
                      const PortalRequest& request);

/// The page of the prices of several tickers.
std::string TickersPage(const MarketView& market, const std::vector<std::string>& symbols,
                        const PortalRequest& request);

/// The profile page, which is searched for the company's home page; an index has none.
std::string ProfilePage(const MarketView& market, std::string_view symbol,
                        const PortalRequest& request);

/// A company's invented home page.
std::string CompanyPage(const MarketView& market, const ShownQuote& quote);

/// The narrow page of the ticker strip, whose symbols run by without end: the indices and the
/// tickers that are asked for ("s"), or without a query all that the market has for the strip. They
/// move on by one at a time when that is asked for ("rest").
std::string TickerStripPage(const MarketView& market, const PortalRequest& request);

/// The front page of the finance portal, also the streaming portfolio's page. The address is not
/// shown: that of the streaming portfolio holds a password.
std::string MarketPage(const MarketView& market, std::string_view title);

/// The page for an address that the portal does not answer; `why` says so, as a sentence.
std::string UnknownPage(const MarketView& market, const PortalRequest& request,
                        std::string_view why);

} // namespace tallowmere
