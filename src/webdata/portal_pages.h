#pragma once

#include "links/catalogue.h"
#include "text/date.h"
#include "webdata/portal_request.h"
#include "webdata/sample_market.h"

#include <string>
#include <string_view>
#include <vector>

/// The portal's pages for people.
namespace tallowmere {

/// The page of a catalogue row: its caption and tooltip, the ticker or tickers with their prices
/// (none for a row without), and the address that was asked for.
std::string LinkPage(const SampleMarket& market, const LinkRow& row,
                     const std::vector<std::string>& symbols, const PortalRequest& request,
                     Date today);

/// The quote page of one ticker, with a chart of the period "1d", "5d", "3m" or "1y".
std::string QuotePage(const SampleMarket& market, std::string_view symbol, std::string_view period,
                      const PortalRequest& request, Date today);

/// The page of the prices of several tickers.
std::string TickersPage(const SampleMarket& market, const std::vector<std::string>& symbols,
                        const PortalRequest& request, Date today);

/// The profile page, which is searched for the company's home page; an index has none.
std::string ProfilePage(const SampleMarket& market, std::string_view symbol,
                        const PortalRequest& request, Date today);

/// The invented host of a company's home page, under a name that belongs to nobody.
std::string CompanyHost(std::string_view symbol);

/// The company whose home page is on `host`; null for any other host.
const SampleQuote* CompanyOnHost(const SampleMarket& market, std::string_view host);

/// A company's invented home page.
std::string CompanyPage(const SampleQuote& quote, Date today);

/// The narrow page of the ticker strip.
std::string TickerStripPage(const SampleMarket& market);

/// The front page of the finance portal, also the streaming portfolio's page. The address is not
/// shown: that of the streaming portfolio holds a password.
std::string MarketPage(const SampleMarket& market, std::string_view title);

/// The page for an address that the portal knows nothing about.
std::string UnknownPage(const PortalRequest& request);

} // namespace tallowmere
