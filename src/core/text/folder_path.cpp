#include "core/text/folder_path.h"

#include <string>

namespace tallowmere {

std::filesystem::path PathInFolder(const std::filesystem::path& folder, std::string_view file) {
    constexpr std::string_view kLeadsAway{"/\\:\0", 4};
    if (file.starts_with('\\'))
        file.remove_prefix(1);
    if (file.empty() || file == "." || file == ".." ||
        file.find_first_of(kLeadsAway) != std::string_view::npos)
        return {};
    return folder / std::u8string(file.begin(), file.end());
}

} // namespace tallowmere
