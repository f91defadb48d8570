#pragma once

#include <string>
#include <string_view>

namespace tallowmere {

/// The UTF-8 text with the Latin letters (ASCII, Latin-1, Latin Extended-A) made lower case. No
/// place in the text moves: every letter keeps its number of bytes, and what is no letter or no
/// UTF-8 stays as it is.
std::string FoldLatin(std::string_view text);

} // namespace tallowmere
