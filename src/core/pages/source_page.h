#pragma once

#include <string>
#include <string_view>

/// The source of a page as a page of its own.
namespace tallowmere {

/// More of a source nobody reads, and the engine would lay it out for minutes.
inline constexpr std::size_t kLongestSource = 5'000'000;

/// A page that shows the source of the page at `address` as plain text, up to the longest that is
/// shown; where it was cut is said. Both may hold anything and are UTF-8; nothing in them has any
/// effect.
std::string SourcePage(std::string_view address, std::string_view source);

} // namespace tallowmere
