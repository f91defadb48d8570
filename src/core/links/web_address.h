#pragma once

#include <string_view>

namespace tallowmere {

/// Whether an address that came from outside is http or https with a host and has neither blanks
/// nor control characters. Nothing else out of a list or a table is ever loaded.
bool IsWebAddress(std::string_view address);

} // namespace tallowmere
