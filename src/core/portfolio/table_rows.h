#pragma once

#include "core/portfolio/quote_cells.h"
#include "core/portfolio/table_columns.h"
#include "core/portfolio/ticker_order.h"
#include "core/portfolio/ticker_reminders.h"
#include "core/quotes/listed_price.h"
#include "core/text/csv_text.h"

/// What the rows of the table of tickers say, how they are sorted, found and copied.
namespace tallowmere {

/// A ticker of a portfolio and all that is known about it.
struct TableRow {
    int portfolio = 0; ///< its number
    std::string portfolioName;
    std::string ticker; ///< as it is stored
    std::string name;   ///< of the company, empty when nobody knows it
    std::optional<ListedPrice> price;
    std::string note; ///< its first line
    TickerReminders reminders;
};

/// The text of a cell, empty for what is not known. Text of strangers is as it is.
std::string CellText(const TableRow& row, TableColumn column);

/// The move that a cell shows by its colour: of the change and the change in percent.
PriceMove CellMove(const TableRow& row, TableColumn column);

/// A range and where in it the last price is, from 0 for its low to 1 for its high.
struct RangeCell {
    double low, high, position;
};

/// The range of a cell; none in other columns, without a price, or where the range is not known or
/// upside down. A price outside of its range stands at its end.
std::optional<RangeCell> CellRange(const TableRow& row, TableColumn column);

/// By what a cell is sorted: a number or, in columns of words, a text without case.
struct SortKey {
    bool isMissing = true;
    double number = 0;
    std::string text;
};

/// The key of a cell. The key of a range is where the last price is in it.
SortKey SortKeyOf(const TableRow& row, TableColumn column);

/// The rows of `order` sorted by their keys (`keys` has one for each row). Those of equal keys stay
/// as they were, those without a key are last in both directions.
TickerOrder SortedOrder(TickerOrder order, const std::vector<SortKey>& keys, bool isDescending);

/// What a filter looks at: ticker, name, portfolio and note, without case.
std::string FilterText(const TableRow& row);

/// The words of a filter, without case.
std::vector<std::string> FilterWords(std::string_view typed);

/// Whether all words occur.
bool PassesFilter(std::string_view filterText, const std::vector<std::string>& words);

/// The rows as a table with headings, of the columns in this order.
CsvRows TableCsv(const std::vector<const TableRow*>& rows, const std::vector<TableColumn>& columns);

} // namespace tallowmere
