#pragma once

#include "core/links/site_hosts.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// The portal's page for all tickers of a stored list ("AOL|YHOO|"), with a view code ("", "1b",
/// "2b" or "0b").
std::string QueryPortfolioAddress(std::string_view storedList, std::string_view viewCode,
                                  const SiteHosts& sites);

/// The page of `site` ("lycos", "MSN", "quotes", "charts", ...) for all of `tickers`.
std::string SendAllAddress(const std::vector<std::string>& tickers, std::string_view site,
                           const SiteHosts& sites);

/// The streaming-quote service's portfolio of a user, who signs in by this address.
std::string StreamingPortfolioAddress(std::string_view userId, std::string_view password,
                                      const SiteHosts& sites);

/// The address of the company's home page in a profile page; empty when the page names none.
std::string FindHomePage(std::string_view profilePage);

} // namespace tallowmere
