#include "core/portfolio/condensed_page.h"

#include "core/links/address.h"
#include "core/links/web_address.h"
#include "core/text/bytes.h"
#include "core/text/rare_byte_search.h"

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

static_assert(std::ranges::none_of(kReplacements, [](const Replacement& replacement) {
    return replacement.find.find('\n') != std::string_view::npos;
}));

constexpr std::string_view kLineBreak = "<br>\n";
constexpr std::string_view kDot = "&#183";

constexpr std::string_view kQuoteLink = "\"/q?s=";

constexpr std::string_view kGridTable = "<table bor";
constexpr std::string_view kRowStart = "</td></tr><tr height=15><tr></table><table><tr><td>";
constexpr std::string_view kNextCell = "</td><td witdh=5></td><td>";
constexpr std::size_t kClosingTags =
    36; // "</td></tr><tr height=15><tr></table>", in front of kRowStart

/// The part of the answer from the table up to the remark behind it.
std::optional<std::string_view> CutTable(std::string_view body) {
    const auto start = body.find(kTableStart);
    if (start == std::string_view::npos)
        return std::nullopt;
    const auto end = body.find(kTableEnd, start);
    if (end == std::string_view::npos)
        return std::nullopt;
    return body.substr(start, end - start);
}

/// Removes the blocks of one kind as if the text were searched from its start again after each.
/// False when a block does not end.
bool RemoveBlocks(std::string& text, const Removal& removal) {
    const ByteSample sample(text);
    const Pattern marker(removal.marker, sample);
    const Pattern cellEnd(kCellEnd, sample);
    char* const bytes = text.data();
    std::size_t kept = 0; // what stays stands in front, up to here
    std::size_t next = 0; // what has not been searched yet begins here
    for (auto at = marker.FindIn(text); at != std::string::npos; at = marker.FindIn(text, next)) {
        const auto end = cellEnd.FindIn(text, at);
        if (end == std::string::npos)
            return false;
        std::memmove(bytes + kept, bytes + next, at - next);
        kept += at - next;
        next = end + (removal.withCellEnd ? kCellEnd.size() : 0);
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

/// The replacements, one after the other over pieces of a text: none of the texts searched for
/// holds a line end, so whole lines can be worked on by themselves, in the processor's cache.
class Replacer {
public:
    explicit Replacer(std::string_view quoteLink) {
        std::ranges::copy(kReplacements, m_replacements.begin());
        m_replacements.back() = {kQuoteLink, quoteLink};
    }

    /// Appends what a text becomes to `result`.
    void Append(std::string& result, std::string_view text) {
        while (!text.empty()) {
            const auto lineEnd = text.find('\n', std::min(kPieceSize, text.size()));
            const std::string_view piece = text.substr(0, lineEnd);
            m_piece = piece;
            ReplaceInPiece();
            result += m_piece;
            text.remove_prefix(piece.size());
        }
    }

private:
    static constexpr std::size_t kPieceSize = 16384;

    void ReplaceInPiece() {
        for (std::size_t i = 0; i < m_replacements.size(); ++i) {
            const auto& [find, replacement] = m_replacements[i];
            // What is rare changes with every replacement; the first piece tells for all.
            if (m_patterns.size() == i)
                m_patterns.emplace_back(find, ByteSample(m_piece));
            const Pattern& pattern = m_patterns[i];
            std::size_t from = 0;
            m_replaced.clear();
            for (auto at = pattern.FindIn(m_piece); at != std::string::npos;
                 at = pattern.FindIn(m_piece, from)) {
                m_replaced.append(m_piece, from, at - from).append(replacement);
                from = at + find.size();
            }
            if (from > 0) {
                m_replaced.append(m_piece, from);
                m_piece.swap(m_replaced);
            }
        }
    }

    std::array<Replacement, kReplacements.size() + 1> m_replacements{};
    std::vector<Pattern> m_patterns;
    std::string m_piece;
    std::string m_replaced;
};

/// Removes the text between the first dot and the first line break, with the bytes around it that
/// belong to neither, wherever it occurs.
void RemoveDots(std::string& text) {
    const auto lineBreak = text.find(kLineBreak);
    const auto dot = text.find(kDot);
    if (lineBreak == std::string::npos || dot == std::string::npos || lineBreak < dot)
        return;
    const std::size_t start = dot + kDot.size();
    const std::string removed = text.substr(start, lineBreak - dot + 1);
    const std::size_t lead = lineBreak - start;

    // The removed text holds its only line break `lead` bytes from its start. So only the places
    // in front of a line break are compared, and none of them reaches back to the one before.
    std::string result;
    std::size_t from = 0;
    std::size_t searched = 0;
    for (auto at = lineBreak; at != std::string::npos; at = text.find(kLineBreak, searched)) {
        if (at >= std::max(searched, from) + lead &&
            text.compare(at - lead, removed.size(), removed) == 0) {
            result.append(text, from, at - lead - from);
            from = at - lead + removed.size();
        }
        searched = at + 1;
    }
    result.append(text, from);
    text.swap(result);
}

/// Puts the tables into a grid of three to a row.
void MakeGrid(std::string& text) {
    const Pattern table(kGridTable, ByteSample(text));
    std::vector<std::size_t> places;
    for (auto at = table.FindIn(text); at != std::string::npos;
         at = table.FindIn(text, at + kGridTable.size()))
        places.push_back(at);

    // From the last to the first, so that every byte is moved once.
    const std::size_t rows = (places.size() + 2) / 3;
    std::size_t from = text.size();
    text.resize(from + rows * kRowStart.size() + (places.size() - rows) * kNextCell.size());
    std::size_t to = text.size();
    for (std::size_t i = places.size(); i-- > 0;) {
        const std::size_t count = from - places[i];
        to -= count;
        std::memmove(text.data() + to, text.data() + places[i], count);
        const std::string_view inserted = i % 3 == 0 ? kRowStart : kNextCell;
        to -= inserted.size();
        inserted.copy(text.data() + to, inserted.size());
        from = places[i];
    }
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
    const std::optional<std::string_view> cut = CutTable(body);
    if (!cut)
        return std::nullopt;
    std::string table(*cut);
    for (const Removal& removal : kRemovals) {
        if (!RemoveBlocks(table, removal))
            return std::nullopt;
    }
    std::string page;
    page.reserve(2 * table.size());
    Replacer("\"" + WithScheme(sites.Address("quote_server", kQuoteLink.substr(1))))
        .Append(page, table);
    RemoveDots(page);
    MakeGrid(page);

    const auto closing = std::min(kClosingTags, page.size());
    page.append(page, 0, closing).append("</body>");
    page.replace(0, closing,
                 R"(<body topmargin="0" leftmargin="0"><a href=")" +
                     WithScheme(sites.Address("portal", "/")) + R"("><img src=")" +
                     WithScheme(sites.Address("portal", "/logo.gif")) + R"(" border="0"></a><br>)");
    return page;
}

} // namespace tallowmere
