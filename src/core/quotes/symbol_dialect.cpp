#include "core/quotes/symbol_dialect.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

struct IndexSpelling {
    std::string_view own;
    std::string_view bySource[6]; ///< in the order of Dialect; empty where a source has none
    std::string_view name;
};

// clang-format off
constexpr IndexSpelling kIndices[] = {
    // own       Yahoo     CNBC      Nasdaq   Cboe     FRED         Treasury
    {"^NYA",  {"^NYA",  ".NYA",   "",      "",      "",          ""},      "NYSE Composite"},
    {"^SPC",  {"^GSPC", ".SPX",   "",      "_SPX",  "SP500",     ""},      "S&P 500"},
    {"^OEX",  {"^OEX",  ".OEX",   "",      "_OEX",  "",          ""},      "S&P 100"},
    {"^TYX",  {"^TYX",  "US30Y",  "",      "",      "DGS30",     "30 Yr"}, "30-Year Treasury Yield"},
    {"^TNX",  {"^TNX",  "US10Y",  "",      "",      "DGS10",     "10 Yr"}, "10-Year Treasury Yield"},
    {"^FVX",  {"^FVX",  "US5Y",   "",      "",      "DGS5",      "5 Yr"},  "5-Year Treasury Yield"},
    {"^DJI",  {"^DJI",  ".DJI",   "",      "",      "DJIA",      ""},      "Dow Jones Industrial Average"},
    {"^IXIC", {"^IXIC", ".IXIC",  "COMP",  "",      "NASDAQCOM", ""},      "Nasdaq Composite"},
    {"^NDX",  {"^NDX",  ".NDX",   "NDX",   "_NDX",  "",          ""},      "Nasdaq-100"},
    {"^RUT",  {"^RUT",  ".RUT",   "",      "_RUT",  "",          ""},      "Russell 2000"},
    {"^VIX",  {"^VIX",  ".VIX",   "",      "_VIX",  "VIXCLS",    ""},      "Cboe Volatility Index"},
};
// clang-format on

std::string_view Spelling(const IndexSpelling& row, Dialect dialect) {
    return row.bySource[static_cast<std::size_t>(dialect)];
}

const IndexSpelling* FindIndex(std::string_view ownSymbol) {
    const auto* row = std::find_if(std::begin(kIndices), std::end(kIndices),
                                   [&](const IndexSpelling& r) { return r.own == ownSymbol; });
    return row == std::end(kIndices) ? nullptr : row;
}

bool IsAlphanumeric(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    });
}

/// Where the class letter's separator stands in "BRK.B", npos without one. One letter after a dot
/// is a share class but for the four that portals use for exchanges (London, Frankfurt, Tokyo,
/// the Canadian ventures); after a hyphen or a slash it always is.
std::size_t ClassSeparator(std::string_view symbol) {
    if (symbol.size() < 3)
        return std::string_view::npos;
    const auto at = symbol.size() - 2;
    const char separator = symbol[at];
    const char shareClass = symbol.back();
    if (!IsAlphanumeric(symbol.substr(0, at)) || shareClass < 'A' || shareClass > 'Z')
        return std::string_view::npos;
    const bool isClass =
        separator == '-' || separator == '/' ||
        (separator == '.' && std::string_view("LFTV").find(shareClass) == std::string_view::npos);
    return isClass ? at : std::string_view::npos;
}

} // namespace

std::string OwnSymbol(std::string_view symbol) {
    std::string own = ToUpper(Trim(symbol));
    if (IsIndexSymbol(own)) {
        for (const IndexSpelling& row : kIndices)
            if (Spelling(row, Dialect::Yahoo) == own)
                return std::string(row.own);
        return own;
    }
    const auto separator = ClassSeparator(own);
    if (separator == std::string::npos)
        return own;
    // The exchange letters stay apart from classes: "BRK-V" keeps its hyphen.
    own[separator] = '.';
    if (ClassSeparator(own) == std::string::npos)
        own[separator] = '-';
    return own;
}

std::optional<std::string> ToDialect(std::string_view ownSymbol, Dialect dialect) {
    if (ownSymbol.empty())
        return std::nullopt;
    if (const IndexSpelling* row = FindIndex(ownSymbol)) {
        const auto spelling = Spelling(*row, dialect);
        return spelling.empty() ? std::nullopt : std::optional(std::string(spelling));
    }
    if (dialect == Dialect::Fred || dialect == Dialect::Treasury)
        return std::nullopt;
    std::string symbol(ownSymbol);
    const auto separator = ClassSeparator(symbol);
    if (separator != std::string::npos) {
        symbol[separator] = dialect == Dialect::Yahoo ? '-' : '.';
        return symbol;
    }
    // Exchange suffixes, currencies and futures are spelt as the portal spells them.
    if (dialect == Dialect::Yahoo || IsAlphanumeric(symbol))
        return symbol;
    return std::nullopt;
}

std::string FromDialect(std::string_view symbol, Dialect dialect) {
    std::string upper = ToUpper(Trim(symbol));
    for (const IndexSpelling& row : kIndices)
        if (!Spelling(row, dialect).empty() && ToUpper(Spelling(row, dialect)) == upper)
            return std::string(row.own);
    // Only the portal has exchanges behind the dot; elsewhere one letter there is always a class.
    if (dialect != Dialect::Yahoo && upper.size() > 2 && upper[upper.size() - 2] == '.')
        upper[upper.size() - 2] = '-';
    return OwnSymbol(upper);
}

std::string_view IndexName(std::string_view ownSymbol) {
    const IndexSpelling* row = FindIndex(ownSymbol);
    return row ? row->name : std::string_view();
}

} // namespace tallowmere
