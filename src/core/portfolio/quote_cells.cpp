#include "core/portfolio/quote_cells.h"

#include "core/quotes/number_text.h"

namespace tallowmere {

QuoteCells CellsOf(const ListedPrice& price) {
    QuoteCells cells;
    cells.last = PriceText(price.last);
    cells.change = TextOr(price.change, ChangeText, "");
    cells.percent = TextOr(price.percent, PercentText, "");
    cells.percentValue = price.percent;
    cells.age = price.age;
    cells.day = price.day;
    // What rounds to nothing is no move.
    if (cells.change.starts_with('+') || (cells.change.empty() && cells.percent.starts_with('+')))
        cells.move = PriceMove::Up;
    if (cells.change.starts_with('-') || (cells.change.empty() && cells.percent.starts_with('-')))
        cells.move = PriceMove::Down;
    for (const std::string* part : {&cells.last, &cells.change, &cells.percent})
        if (!part->empty())
            cells.words.append(cells.words.empty() ? "" : ", ").append(*part);
    if (!price.age.empty())
        cells.remark = "stale: " + price.age;
    if (price.doubtful)
        cells.remark.append(cells.remark.empty() ? "" : ", ")
            .append("doubtful: moved by half or more");
    if (!cells.remark.empty()) {
        cells.words += ", " + cells.remark;
        cells.remark = "Price of " + price.origin + " (" + cells.remark + ")";
    }
    return cells;
}

} // namespace tallowmere
