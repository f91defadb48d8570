#include "core/sites/https_first.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::string_view kHttp = "http://";
constexpr std::array<std::string_view, 5> kNearEndings = {".localhost", ".local", ".internal",
                                                          ".lan", ".home.arpa"};

} // namespace

std::optional<std::string> HttpsInstead(std::string_view address) {
    if (ToLower(address.substr(0, kHttp.size())) != kHttp)
        return std::nullopt;
    const std::string_view rest = address.substr(kHttp.size());
    std::string host = ToLower(rest.substr(0, std::min(rest.find_first_of("/?#\\"), rest.size())));
    if (const auto at = host.rfind('@'); at != std::string::npos)
        host.erase(0, at + 1);
    if (host.ends_with(":80"))
        host.resize(host.size() - 3);
    const bool isNumber = host.find_first_not_of("0123456789.") == std::string::npos;
    const bool isNear = std::ranges::any_of(
        kNearEndings, [&](std::string_view ending) { return host.ends_with(ending); });
    if (host.find('.') == std::string::npos || host.find_first_of(":[]") != std::string::npos ||
        isNumber || isNear)
        return std::nullopt;
    std::string secure = "https://" + std::string(rest);
    // The usual port of http is none of https.
    const std::size_t hostEnd = std::min(secure.find_first_of("/?#\\", 8), secure.size());
    if (std::string_view(secure).substr(0, hostEnd).ends_with(":80"))
        secure.erase(hostEnd - 3, 3);
    return secure;
}

} // namespace tallowmere
