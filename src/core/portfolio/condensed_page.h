#pragma once

#include "core/portfolio/stored_portfolio.h"
#include "core/sites/site_table.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The portal's quotes of many tickers, rearranged into a compact grid of three to a row.
namespace tallowmere {

/// The tickers of the current list as the portal's query takes them: "ibm+msft".
std::string CondensedQuery(const std::vector<std::string>& tickers);

/// The tickers of all portfolios, in the order of their numbers: "IBM+MSFT".
std::string CondensedQuery(std::span<const StoredPortfolio> portfolios);

/// The address of the portal's page for a query with a view code ("1b", "2b" or "0b").
std::string CondensedAddress(std::string_view query, std::string_view viewCode,
                             const SiteTable& sites);

/// The page made of the portal's answer. None when the answer is not of the expected form: no
/// table, no end of it, or a cell that does not end.
std::optional<std::string> CondensedPage(std::string_view body, const SiteTable& sites);

} // namespace tallowmere
