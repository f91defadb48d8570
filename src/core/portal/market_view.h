#pragma once

#include "core/portal/chart_svg.h"
#include "core/portal/html_page.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// The span of a chart that a page shows.
enum class Period : std::uint8_t { Year, ThreeMonths, FiveDays, Day };

/// What a page says about one symbol. Prices are in dollars or points; what is not known, or does
/// not exist for an index, is empty.
struct ShownQuote {
    std::string symbol; ///< as asked for, upper case
    std::string name;
    bool isIndex = false;
    double last = 0;
    std::optional<double> change, percent, previous;
    std::optional<double> open, dayLow, dayHigh, yearLow, yearHigh;
    std::optional<double> volume, averageVolume, marketCap;
    std::optional<double> earnings, priceEarnings, dividend, yield;
    std::string when;        ///< when the price was made, and what else is to be said about it
    std::string age;         ///< in a few characters when the price is stale, else empty
    std::string stamp;       ///< where it comes from, in a heading
    std::string rangeSource; ///< of the 52-week range, when it is not that of the price
};

/// A market as the pages of the built-in portal see it: the invented one or today's.
class MarketView {
public:
    virtual ~MarketView() = default;

    /// The quote of a symbol in any case; none for one without a price.
    virtual std::optional<ShownQuote> Find(std::string_view symbol) const = 0;

    /// The chart of a symbol; one without values when there are no prices.
    virtual Chart ChartOf(std::string_view symbol, Period period) const = 0;

    /// The symbols of the ticker strip, in their order.
    virtual std::vector<std::string> StripSymbols() const = 0;

    /// Why there is no quote of a symbol, as a sentence.
    virtual std::string Missing(std::string_view symbol) const = 0;

    /// The address of a company's home page, of its search; empty for none.
    virtual std::string HomePage(const ShownQuote& quote) const = 0;

    /// The address under which a page of the portal's links to another one with this path.
    virtual std::string LinkTo(std::string_view path) const { return std::string(path); }

    /// What every page says about the market as a whole.
    virtual PageFrame Frame() const = 0;
};

} // namespace tallowmere
