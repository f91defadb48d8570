#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The list of pages that Back and Forward lead to.
namespace tallowmere {

enum class HistorySide { Back, Forward };

/// The places in a history of `count` pages that are listed when the page at `current` is in view:
/// the nearest first, at most 15. `isCovered` says that this page is itself one step back, because
/// something that was not loaded is told in front of it.
std::vector<int> HistorySteps(int current, int count, HistorySide side, bool isCovered);

/// What the list says of a page: its title in one short line of plain text, or its address when it
/// has none.
std::string HistoryCaption(std::string_view title, std::string_view address);

} // namespace tallowmere
