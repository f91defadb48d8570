#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Sites of the web are asked by https first.
namespace tallowmere {

/// The https address of the same page. None for what is no http address of a site of the web: one
/// with a port of its own, or on this machine or network (a number for a host, a name without a
/// dot or with an ending that no site of the web has).
std::optional<std::string> HttpsInstead(std::string_view address);

/// Whether the engine's name of an error ("net::ERR_CONNECTION_REFUSED") may mean that a site does
/// not speak https. Without a network, or a host of the name, http would fail as well.
bool MayLackHttps(std::string_view errorName);

} // namespace tallowmere
