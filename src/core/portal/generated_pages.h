#pragma once

#include <string>
#include <string_view>

/// Addresses as they are typed and built: text that often lacks its scheme.
namespace tallowmere {

/// The scheme of an address in lower case, without its colon; empty when it has none. What stands
/// before the colon of a port ("localhost:8080/") is no scheme.
std::string SchemeOf(std::string_view address);

/// The address without blanks around it, with "http://" before it when it has no scheme.
std::string WithScheme(std::string_view address);

/// Whether `name` is that of a page which the program writes into its folder and shows: one of the
/// fixed names or a stored multi-link. A name that leads out of the folder is none.
bool IsGeneratedPageName(std::string_view name);

/// The name of the generated page that `address` is the path of: `folder`, a slash or backslash,
/// and the name. Empty for any other address.
std::string_view GeneratedPageIn(std::string_view folder, std::string_view address);

} // namespace tallowmere
