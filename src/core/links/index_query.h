#pragma once

#include <array>
#include <string>
#include <string_view>

/// The six market indices, and the addresses under which they are asked for.
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

} // namespace tallowmere
