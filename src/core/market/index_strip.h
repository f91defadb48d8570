#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The strip of six market indices: what is asked for, and how the answer is read.
namespace tallowmere {

struct IndexRow {
    std::string_view symbol; ///< in the query
    std::string_view anchor; ///< searched for in the page
    std::string_view label;  ///< put before the values
};

constexpr int kIndexCount = 6;

/// The six rows in the order of the panels.
const std::array<IndexRow, kIndexCount>& IndexTable();

/// Path and query of the page that the strip reads.
std::string IndexQuery();

/// Path and query of the page with the details, shown by a click on the strip and at the start.
std::string DetailedIndexQuery();

/// Whether a tick fetches: more than 200 seconds since the last fetch. `clock` is in seconds since
/// midnight, `lastFetch` the mark of the last fetch.
bool FetchIsDue(double clock, int lastFetch);

/// The mark of a fetch at `clock`: whole seconds, half rounded to even.
int FetchMark(double clock);

/// Whether the page is whole; a page that is not gets one more read.
bool IsCompleteIndexPage(std::string_view page);

/// The texts of the panels, in their order. The first row that cannot be read ends the list: the
/// panels from there on keep what they show.
std::vector<std::string> ReadIndexPage(std::string_view page);

/// What the page says about a row beside its values, which is where they come from and of what time
/// they are: the title of the table's row. Empty for a page that says nothing, or has no such row.
std::string ReadIndexNote(std::string_view page, const IndexRow& row);

} // namespace tallowmere
