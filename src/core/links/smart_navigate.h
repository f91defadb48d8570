#pragma once

#include <string>
#include <string_view>

namespace tallowmere {

/// The address for an entry: trimmed, and a name without a dot becomes "www." + name + ".com".
/// Empty for an entry of blanks.
std::string CompleteEntry(std::string_view entry);

} // namespace tallowmere
