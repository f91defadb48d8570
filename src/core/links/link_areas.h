#pragma once

#include "core/links/catalogue.h"

#include <cstdint>
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

} // namespace tallowmere
