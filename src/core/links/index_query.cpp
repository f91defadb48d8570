#include "core/links/index_query.h"

namespace tallowmere {

namespace {

// clang-format off
constexpr std::array<IndexRow, kIndexCount> kRows{{
    {"^nya",  "<a href=\"/q?s=^NYA&d=t\">",  "NYSE : "},
    {"^spc",  "<a href=\"/q?s=^SPC&d=t\">",  "S&P 500 : "},
    {"^oex",  "<a href=\"/q?s=^OEX&d=t\">",  "S&P 100 : "},
    {"^tyx",  "<a href=\"/q?s=^TYX&d=t\">",  "30Y-TSY : "},
    {"^dji",  "<a href=\"/q?s=^DJI&d=t\">",  "DJIA : "},
    {"^ixic", "<a href=\"/q?s=^IXIC&d=t\">", "NAS/NMS : "},
}};
// clang-format on

} // namespace

const std::array<IndexRow, kIndexCount>& IndexTable() {
    return kRows;
}

std::string IndexQuery() {
    std::string query = "/q?s=";
    for (const IndexRow& row : kRows) {
        if (&row != &kRows.front())
            query += '+';
        query += row.symbol;
    }
    return query;
}

std::string DetailedIndexQuery() {
    return IndexQuery() + "&d=t";
}

} // namespace tallowmere
