#pragma once

#include <string>
#include <vector>

namespace tallowmere {

/// A text under the time axis of a chart.
struct ChartLabel {
    double at; ///< 0 is the left end of the axis, 1 the right end
    std::string text;
};

/// What a price chart shows.
struct Chart {
    std::string title;
    std::string note;               ///< written under the curve: where the prices come from
    std::vector<double> values;     ///< oldest first, evenly spaced
    std::vector<ChartLabel> labels; ///< from left to right; those that would touch are left out
};

enum class ChartSize { Small, Large };

/// Draws a chart as an SVG text of 192 x 96 or 512 x 288 pixels: the curve, its highest and lowest
/// price, its last price and its labels. A chart without values says that there are none.
std::string ChartSvg(const Chart& chart, ChartSize size);

} // namespace tallowmere
