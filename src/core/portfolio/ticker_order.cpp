#include "core/portfolio/ticker_order.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <numeric>

namespace tallowmere {

namespace {

TickerOrder AsItIs(std::size_t count) {
    TickerOrder order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    return order;
}

} // namespace

TickerOrder MovedOrder(std::size_t count, std::size_t from, std::size_t before) {
    TickerOrder order = AsItIs(count);
    const auto at = [&](std::size_t n) { return order.begin() + static_cast<std::ptrdiff_t>(n); };
    if (before > from)
        std::rotate(at(from), at(from) + 1, at(before));
    else
        std::rotate(at(before), at(from), at(from) + 1);
    return order;
}

TickerOrder OrderBySymbol(const std::vector<std::string>& tickers) {
    std::vector<std::string> upper;
    upper.reserve(tickers.size());
    for (const std::string& ticker : tickers)
        upper.push_back(ToUpper(Trim(ticker)));
    TickerOrder order = AsItIs(tickers.size());
    std::ranges::stable_sort(order, [&](std::size_t one, std::size_t other) {
        if (upper[one].empty() || upper[other].empty())
            return !upper[one].empty() && upper[other].empty();
        return upper[one] < upper[other];
    });
    return order;
}

TickerOrder OrderByChange(const std::vector<std::optional<double>>& percents) {
    TickerOrder order = AsItIs(percents.size());
    // None is less than any number.
    std::ranges::stable_sort(
        order, [&](std::size_t one, std::size_t other) { return percents[one] > percents[other]; });
    return order;
}

} // namespace tallowmere
