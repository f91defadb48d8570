#pragma once

#include <string_view>
#include <vector>

namespace tallowmere {

/// The keys of all sites that addresses are built with, in the order of the alphabet, each once: a
/// table of sites that has them all needs no default.
std::vector<std::string_view> SiteKeys();

} // namespace tallowmere
