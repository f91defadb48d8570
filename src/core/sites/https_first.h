#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Sites of the web are asked by https first.
namespace tallowmere {

/// The https address of the same page. None for what is no http address of a site of the web: one
/// with a port of its own, or on this machine or network (a number for a host, a name without a
/// dot).
std::optional<std::string> HttpsInstead(std::string_view address);

} // namespace tallowmere
