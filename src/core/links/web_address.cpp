#include "core/links/web_address.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

bool IsWebAddress(std::string_view address) {
    const auto schemeEnd = address.find("://");
    if (schemeEnd == std::string_view::npos)
        return false;
    const std::string scheme = ToLower(address.substr(0, schemeEnd));
    const std::string_view rest = address.substr(schemeEnd + 3);
    const bool hasHost =
        !rest.empty() && std::string_view("/?#:@").find(rest[0]) == std::string_view::npos;
    const bool isClean = std::none_of(rest.begin(), rest.end(), [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || c == '\x7F' || c == '"' || c == '<';
    });
    return (scheme == "http" || scheme == "https") && hasHost && isClean;
}

} // namespace tallowmere
