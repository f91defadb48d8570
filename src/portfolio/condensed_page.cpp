#include "portfolio/condensed_page.h"

#include "links/address.h"
#include "text/bytes.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tallowmere {

namespace {

constexpr std::string_view kTableStart =
    R"(<table border=1 width="100%" cellpadding=0 cellspacing=0>)";
constexpr std::string_view kTableEnd = "Quotes delayed 15";
constexpr std::string_view kCellEnd = "</td>";

struct Removal {
    std::string_view marker; ///< the block begins with it and ends at the next end of a cell
    bool withCellEnd;
};

struct Replacement {
    std::string_view find;
    std::string_view replacement;
};

// clang-format off
constexpr std::array<Removal, 5> kRemovals{{
    {"- More Info:",        false},
    {"<small>Small",        false},
    {"<td nowrap>Div Date", true},
    {"<td nowrap>Ex-Div",   true},
    {"<td nowrap>Yield",    true},
}};

constexpr std::array<Replacement, 18> kReplacements{{
    {"valign=bottom",          "valign=top"},
    {"100%",                   "1%"},
    {"<p>",                    ""},
    {"border=1",               "border=0"},
    {"<td nowrap>",            R"(<td nowrap><font face="Times New Roman" size="1">)"},
    {"<td nowrap colspan=2>",  R"(<td nowrap colspan=2><font face="Times New Roman" size="1">)"},
    {"<td nowrap colspan=7>",  R"(<td nowrap colspan=6><font face="Times New Roman" size="1">)"},
    {"<td nowrap rowspan=3",   R"(</tr><tr><td nowrap colspan=6 align="center")"},
    {"</td>",                  "</font></td>"},
    {">/<",                    "><"},
    {",",                      ""},
    {"Avg Vol",                "AvgVol"},
    {"week Range",             "week"},
    {"Earn/Shr",               "E/Sh"},
    {"Mkt Cap",                "MktCap"},
    {"Div/Shr",                "Div"},
    {"Day's",                  "Day"},
    {"Prev Cls",               "PrevCls"},
}};
// clang-format on

constexpr std::string_view kLineBreak = "<br>\n";
constexpr std::string_view kDot = "&#183";

constexpr std::string_view kQuoteLink = "\"/q?s=";

constexpr std::string_view kGridTable = "<table bor";
constexpr std::string_view kRowStart = "</td></tr><tr height=15><tr></table><table><tr><td>";
constexpr std::string_view kNextCell = "</td><td witdh=5></td><td>";
constexpr std::size_t kClosingTags =
    36; // "</td></tr><tr height=15><tr></table>", in front of kRowStart

/// The part of the answer from the table up to the remark behind it.
std::optional<std::string> CutTable(std::string_view body) {
    const auto start = body.find(kTableStart);
    if (start == std::string_view::npos)
        return std::nullopt;
    const auto end = body.find(kTableEnd, start);
    if (end == std::string_view::npos)
        return std::nullopt;
    return std::string(body.substr(start, end - start));
}

/// Removes the blocks of one kind as if the text were searched from its start again after each.
/// False when a block does not end.
bool RemoveBlocks(std::string& text, const Removal& removal) {
    char* const bytes = text.data();
    std::size_t kept = 0; // what stays stands in front, up to here
    std::size_t next = 0; // what has not been searched yet begins here
    for (auto at = text.find(removal.marker); at != std::string::npos;
         at = text.find(removal.marker, next)) {
        const auto cellEnd = text.find(kCellEnd, at);
        if (cellEnd == std::string::npos)
            return false;
        std::memmove(bytes + kept, bytes + next, at - next);
        kept += at - next;
        next = cellEnd + (removal.withCellEnd ? kCellEnd.size() : 0);
        // What stood before and behind the block may form a marker together: the last bytes before
        // it go in front of the rest and are searched with it.
        const auto again = std::min(kept, removal.marker.size() - 1);
        kept -= again;
        next -= again;
        std::memmove(bytes + next, bytes + kept, again);
    }
    text.erase(kept, next - kept);
    return true;
}

/// Removes the text between the first dot and the first line break, with the bytes around it that
/// belong to neither, wherever it occurs.
std::string RemoveDots(std::string text) {
    const auto lineBreak = text.find(kLineBreak);
    const auto dot = text.find(kDot);
    if (lineBreak == std::string::npos || dot == std::string::npos || lineBreak < dot)
        return text;
    const std::size_t start = dot + kDot.size();
    const std::string removed = text.substr(start, lineBreak - dot + 1);
    const std::size_t lead = lineBreak - start;

    // The removed text holds its only line break `lead` bytes from its start. So only the places
    // in front of a line break are compared, and none of them reaches back to the one before.
    std::string result;
    std::size_t from = 0;
    std::size_t searched = 0;
    for (auto at = lineBreak; at != std::string::npos; at = text.find(kLineBreak, searched)) {
        if (at >= searched + lead && at >= from + lead &&
            text.compare(at - lead, removed.size(), removed) == 0) {
            result.append(text, from, at - lead - from);
            from = at - lead + removed.size();
        }
        searched = at + 1;
    }
    return result.append(text, from);
}

/// Puts the tables into a grid of three to a row.
std::string MakeGrid(std::string_view text) {
    std::string grid;
    std::size_t from = 0;
    int column = 0;
    for (auto at = text.find(kGridTable); at != std::string_view::npos;
         at = text.find(kGridTable, at + kGridTable.size())) {
        grid.append(text, from, at - from).append(column == 0 ? kRowStart : kNextCell);
        from = at;
        column = (column + 1) % 3;
    }
    return grid.append(text, from);
}

} // namespace

std::string CondensedQuery(const std::vector<std::string>& tickers) {
    std::string query;
    for (const std::string& ticker : tickers)
        query += ToLower(ticker) + "+";
    if (!query.empty())
        query.pop_back();
    return query;
}

std::string CondensedQuery(std::span<const StoredPortfolio> portfolios) {
    std::string query;
    for (const StoredPortfolio& portfolio : portfolios)
        query += ReplaceAll(portfolio.tickers, "|", "+");
    if (!query.empty())
        query.pop_back();
    return query;
}

std::string CondensedAddress(std::string_view query, std::string_view viewCode,
                             const SiteTable& sites) {
    std::string path = "/quotes?symbols=";
    path.append(query).append("&d=").append(viewCode);
    return sites.Address("portfolio_quotes", path);
}

std::optional<std::string> CondensedPage(std::string_view body, const SiteTable& sites) {
    std::optional<std::string> table = CutTable(body);
    if (!table)
        return std::nullopt;
    for (const Removal& removal : kRemovals) {
        if (!RemoveBlocks(*table, removal))
            return std::nullopt;
    }
    for (const auto& [find, replacement] : kReplacements)
        table = ReplaceAll(*table, find, replacement);
    table = ReplaceAll(*table, kQuoteLink,
                       "\"" + WithScheme(sites.Address("quote_server", kQuoteLink.substr(1))));
    const std::string grid = MakeGrid(RemoveDots(std::move(*table)));

    const std::string_view all = grid;
    const auto closing = std::min(kClosingTags, all.size());
    std::string page = R"(<body topmargin="0" leftmargin="0"><a href=")" +
                       WithScheme(sites.Address("portal", "/")) + R"("><img src=")" +
                       WithScheme(sites.Address("portal", "/logo.gif")) +
                       R"(" border="0"></a><br>)";
    page.append(all.substr(closing)).append(all.substr(0, closing)).append("</body>");
    return page;
}

} // namespace tallowmere
