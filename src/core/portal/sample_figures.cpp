#include "core/portal/sample_figures.h"

#include "core/portal/noise.h"
#include "core/portal/sample_series.h"

#include <algorithm>

namespace tallowmere {

SampleFigures FiguresOf(const SampleQuote& quote) {
    SampleFigures figures{};
    const std::vector<double> day = SampleDay(quote);
    figures.last = quote.closes.back();
    figures.previous = quote.closes[quote.closes.size() - 2];
    figures.change = figures.last - figures.previous;
    figures.percent = figures.previous == 0 ? 0 : figures.change / figures.previous * 100;
    figures.open = day[1]; // the walk starts at the close of the day before
    figures.dayLow = *std::min_element(day.begin() + 1, day.end());
    figures.dayHigh = *std::max_element(day.begin() + 1, day.end());
    const auto [low, high] = std::minmax_element(quote.closes.begin(), quote.closes.end());
    figures.yearLow = std::min(*low, figures.dayLow);
    figures.yearHigh = std::max(*high, figures.dayHigh);
    if (quote.shares == 0)
        return figures;

    Noise noise(quote.symbol);
    figures.averageVolume = quote.shares * (0.006 + 0.004 * noise.Next());
    figures.volume = figures.averageVolume * (1 + 0.5 * noise.Next());
    figures.marketCap = quote.shares * figures.last;
    figures.priceEarnings = 24 + 14 * noise.Next();
    figures.earnings = figures.last / figures.priceEarnings;
    figures.yield = std::max(0.0, 1.2 + 2.4 * noise.Next());
    figures.dividend = figures.last * figures.yield / 100;
    return figures;
}

} // namespace tallowmere
