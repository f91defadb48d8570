#pragma once

#include "core/links/catalogue.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace tallowmere {

/// Where a group of links stands in the window.
enum class PanelSide : std::uint8_t { Top, Left, Right };

/// Links that stand together under a small heading, in the order in which they are shown.
struct LinkGroup {
    PanelSide panel;
    std::string_view heading;
    std::span<const std::int16_t> indexes;
};

/// The groups, each panel's from its start to its end. Every link stands in exactly one.
std::span<const LinkGroup> LinkGroups();

/// The link that stands next to `link` in its group in the order in which they are shown, or before
/// it for `by` -1; those that `canOpen` is false for are passed over. None at the end of the group.
std::optional<int> NeighbourOf(int link, int by, const std::function<bool(int)>& canOpen);

} // namespace tallowmere
