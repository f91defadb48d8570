#pragma once

#include <string>
#include <string_view>

/// Text of strangers made fit to be read in one line.
namespace tallowmere {

/// The text without what is not seen but changes how it reads: control characters, marks that turn
/// the direction of writing, characters without a width. Bytes that are no UTF-8 become `damaged`.
/// Line ends stay only with `keepsLines`, each as one line feed.
std::string WithoutHiddenCharacters(std::string_view text, char damaged, bool keepsLines = false);

/// As much of the front of a UTF-8 text as fits into `bytes`, no character torn.
std::string_view FrontOf(std::string_view text, std::size_t bytes);

} // namespace tallowmere
