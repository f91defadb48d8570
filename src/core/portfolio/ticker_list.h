#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// The tickers of a stored list ("AOL|YHOO|" gives AOL and YHOO; "|" gives one empty ticker). A
/// last piece without its bar counts as a ticker too.
std::vector<std::string> SplitTickerList(std::string_view stored);

/// The stored form: each ticker trimmed of blanks and followed by a bar.
std::string JoinTickerList(const std::vector<std::string>& tickers);

/// What an entry typed into the ticker box does to a list.
struct TickerEntry {
    std::vector<std::string> added; ///< at the end of the list, in this order
    bool accepted;                  ///< the box is emptied and the list is written
    std::vector<std::string> known; ///< what is in the list already, each once
    std::string last;               ///< the last symbol of the entry; empty when there is none
};

/// What the user is told of an entry: "AMD and GE added; MSFT is in the list already." Empty when
/// the entry held no symbol.
std::string EntryWords(const TickerEntry& entry);

/// Splits an entry at blanks, commas and semicolons, upper-cases it, drops its quote marks and
/// leaves out what `tickers` holds already. When the last symbol is there already, the entry is not
/// accepted, though the earlier ones are added.
TickerEntry EnterTickers(std::string_view entry, const std::vector<std::string>& tickers);

/// Which row is selected when a list is shown as another command has left it: what came back when
/// there are more tickers than were `shown`, else the one that was selected at `row`, as long as it
/// is there; -1 for none.
int RowAfterReload(const std::vector<std::string>& shown, const std::vector<std::string>& tickers,
                   int row);

/// Those of `tickers`, in order, whose text occurs nowhere in `lists`, the joined stored lists of
/// the other portfolios: their notes go with them. A text inside a longer symbol counts as an
/// occurrence, and the empty text occurs everywhere.
std::vector<std::string> TickersFoundNowhere(const std::vector<std::string>& tickers,
                                             std::string_view lists);

} // namespace tallowmere
