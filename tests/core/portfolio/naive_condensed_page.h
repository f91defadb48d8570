#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>

/// The condensed page written down step by step with positions that count from 1 and searches that
/// begin at the front each time: slow, and simple enough to be checked by eye. The real one is
/// compared with it.
namespace tallowmere::naive {

/// Position of `part` from position `start` on, 0 when it does not occur.
inline std::size_t Find(std::size_t start, const std::string& text, const std::string& part) {
    const auto at = text.find(part, start - 1);
    return at == std::string::npos ? 0 : at + 1;
}

inline std::string From(const std::string& text, std::size_t position) {
    return position > text.size() ? "" : text.substr(position - 1);
}

inline std::string From(const std::string& text, std::size_t position, std::size_t count) {
    return From(text, position).substr(0, count);
}

inline std::string Front(const std::string& text, std::size_t count) {
    return text.substr(0, count);
}

inline std::string Replace(std::string text, const std::string& find, const std::string& by) {
    std::size_t at = find.empty() ? 0 : Find(1, text, find);
    while (at != 0) {
        text = Front(text, at - 1) + by + From(text, at + find.size());
        at = Find(at + by.size(), text, find);
    }
    return text;
}

/// The page, or none where a step cannot be done.
inline std::optional<std::string> CondensedPage(const std::string& body, const std::string& head,
                                                const std::string& quoteServer) {
    const std::size_t start =
        Find(1, body, "<table border=1 width=\"100%\" cellpadding=0 cellspacing=0>");
    if (start == 0)
        return std::nullopt;
    std::string text = From(body, start);
    const std::size_t end = Find(1, text, "Quotes delayed 15");
    if (end == 0)
        return std::nullopt;
    text = Front(text, end - 1);

    const std::array<std::pair<std::string, std::size_t>, 5> blocks{{{"- More Info:", 0},
                                                                     {"<small>Small", 0},
                                                                     {"<td nowrap>Div Date", 5},
                                                                     {"<td nowrap>Ex-Div", 5},
                                                                     {"<td nowrap>Yield", 5}}};
    for (const auto& [marker, through] : blocks) {
        while (Find(1, text, marker) != 0) {
            const std::size_t at = Find(1, text, marker);
            const std::size_t close = Find(at, text, "</td>");
            if (close == 0)
                return std::nullopt;
            text = Front(text, at - 1) + From(text, close + through);
        }
    }

    const std::string font = "<font face=\"Times New Roman\" size=\"1\">";
    text = Replace(text, "valign=bottom", "valign=top");
    text = Replace(text, "100%", "1%");
    text = Replace(text, "<p>", "");
    text = Replace(text, "border=1", "border=0");
    text = Replace(text, "<td nowrap>", "<td nowrap>" + font);
    text = Replace(text, "<td nowrap colspan=2>", "<td nowrap colspan=2>" + font);
    text = Replace(text, "<td nowrap colspan=7>", "<td nowrap colspan=6>" + font);
    text = Replace(text, "<td nowrap rowspan=3", "</tr><tr><td nowrap colspan=6 align=\"center\"");
    text = Replace(text, "</td>", "</font></td>");
    text = Replace(text, ">/<", "><");
    text = Replace(text, ",", "");
    text = Replace(text, "Avg Vol", "AvgVol");
    text = Replace(text, "week Range", "week");
    text = Replace(text, "Earn/Shr", "E/Sh");
    text = Replace(text, "Mkt Cap", "MktCap");
    text = Replace(text, "Div/Shr", "Div");
    text = Replace(text, "Day's", "Day");
    text = Replace(text, "Prev Cls", "PrevCls");
    text = Replace(text, "\"/q?s=", "\"" + quoteServer + "/q?s=");

    const std::size_t b = Find(1, text, "<br>\n");
    const std::size_t d = Find(1, text, "&#183");
    if (b != 0 && d != 0 && d < b)
        text = Replace(text, From(text, d + 5, b - d + 1), "");

    int counter = 1;
    std::size_t table = Find(1, text, "<table bor");
    while (table != 0) {
        const std::string inserted = counter == 1
                                         ? "</td></tr><tr height=15><tr></table><table><tr><td>"
                                         : "</td><td witdh=5></td><td>";
        text = Front(text, table - 1) + inserted + From(text, table);
        table = Find(table + (counter == 1 ? 55 : 32), text, "<table bor");
        counter = counter == 3 ? 1 : counter + 1;
    }
    return head + From(text, 37) + Front(text, 36) + "</body>";
}

} // namespace tallowmere::naive
