#pragma once

#include <string>
#include <string_view>

/// Addresses of the web as they are typed, built and found: text that often lacks its scheme.
namespace tallowmere {

/// The scheme of an address in lower case, without its colon; empty when it has none. What stands
/// before the colon of a port ("localhost:8080/") is no scheme.
std::string SchemeOf(std::string_view address);

/// The address without blanks around it, with "http://" before it when it has no scheme.
std::string WithScheme(std::string_view address);

/// Whether an address that came from outside is http or https with a host and has neither blanks
/// nor control characters. Nothing else out of a list or a table is ever loaded.
bool IsWebAddress(std::string_view address);

} // namespace tallowmere
