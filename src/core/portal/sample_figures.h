#pragma once

#include "core/portal/sample_market.h"

namespace tallowmere {

/// What a page says about a quote besides its name. Prices are in dollars or points.
struct SampleFigures {
    double last, change, percent, previous;
    double open, dayLow, dayHigh, yearLow, yearHigh;
    double volume, averageVolume; ///< shares; 0 for an index, as all below
    double marketCap, earnings, priceEarnings, dividend, yield;
};

/// The figures of a quote: those of its closes, and invented ones for the rest, the same every
/// time.
SampleFigures FiguresOf(const SampleQuote& quote);

} // namespace tallowmere
