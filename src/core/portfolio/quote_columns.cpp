#include "core/portfolio/quote_columns.h"

namespace tallowmere {

std::vector<PlacedColumn> PlaceColumns(int width, int symbolWidth, const OfColumns<int>& widths,
                                       int gap) {
    std::vector<PlacedColumn> placed;
    int taken = symbolWidth;
    for (const QuoteColumnRow& row : kQuoteColumns) {
        const int own = widths.at(static_cast<std::size_t>(row.column));
        if (own == 0)
            continue;
        if (taken + gap + own > width)
            break;
        placed.push_back({row.column, 0, own});
        taken += gap + own;
    }
    int right = width;
    for (auto column = placed.rbegin(); column != placed.rend(); ++column) {
        column->left = right - column->width;
        right = column->left - gap;
    }
    return placed;
}

} // namespace tallowmere
