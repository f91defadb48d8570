#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The order of the tickers of a list. An order names the tickers by where they were.
namespace tallowmere {

using TickerOrder = std::vector<std::size_t>;

/// The order in which the ticker at `from` stands before the one at `before`, at the end when that
/// is `count`; the others stay as they are. Both are at most `count`, and `from` less.
TickerOrder MovedOrder(std::size_t count, std::size_t from, std::size_t before);

/// The order by the alphabet, whatever the case; empty tickers and those of one name as they were,
/// the empty ones at the end.
TickerOrder OrderBySymbol(const std::vector<std::string>& tickers);

/// The order by the change in percent, the greatest gain first. Those of one change stay as they
/// are, and so do those without any, at the end.
TickerOrder OrderByChange(const std::vector<std::optional<double>>& percents);

} // namespace tallowmere
