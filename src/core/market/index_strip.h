#pragma once

#include "core/links/index_query.h"

#include <string>
#include <string_view>
#include <vector>

/// The strip of six market indices: when it asks, and how the answer is read.
namespace tallowmere {

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
/// they are, or why there are none: the title of the table's row. Empty for a page that says
/// nothing, or has no such row.
std::string ReadIndexNote(std::string_view page, const IndexRow& row);

/// How old the page says a stale value of a row is; empty when it does not call it stale.
std::string ReadIndexAge(std::string_view page, const IndexRow& row);

} // namespace tallowmere
