#pragma once

#include <string>
#include <string_view>

namespace tallowmere {

/// In words, why a page could not be loaded, from the engine's name of the error
/// ("net::ERR_NAME_NOT_RESOLVED"). An error without words of its own is given by its name.
std::string LoadErrorText(std::string_view errorName);

} // namespace tallowmere
