#pragma once

#include <string_view>

/// The pages that the program writes into its folder: their names, which nothing else there has.
namespace tallowmere {

/// Whether `name` is that of a page which the program writes into its folder and shows: one of the
/// fixed names or a stored multi-link. A name that leads out of the folder is none.
bool IsGeneratedPageName(std::string_view name);

/// The name of the generated page that `address` is the path of: `folder`, a slash or backslash,
/// and the name. Empty for any other address.
std::string_view GeneratedPageIn(std::string_view folder, std::string_view address);

} // namespace tallowmere
