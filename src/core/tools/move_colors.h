#pragma once

#include <cstdint>

/// The colours of prices that rose, fell or are old, on a background of the user's. All colours are
/// of red, green and blue, 0x00BBGGRR.
namespace tallowmere {

/// A green that is legible on the background; `text` where none is.
std::uint32_t RiseColor(std::uint32_t text, std::uint32_t background);

/// A red that is legible on the background; `text` where none is.
std::uint32_t FallColor(std::uint32_t text, std::uint32_t background);

/// The text colour taken back towards the background, as far as it stays legible.
std::uint32_t DimmedColor(std::uint32_t text, std::uint32_t background);

} // namespace tallowmere
