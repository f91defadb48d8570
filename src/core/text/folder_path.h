#pragma once

#include <filesystem>
#include <string_view>

namespace tallowmere {

/// Where a name, with or without a leading backslash, lies in `folder`. A name that would lead out
/// of it, or is none, gives the empty path, under which nothing can be read or written.
std::filesystem::path PathInFolder(const std::filesystem::path& folder, std::string_view file);

} // namespace tallowmere
