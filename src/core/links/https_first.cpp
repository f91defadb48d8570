#include "core/links/https_first.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::string_view kHttp = "http://";
constexpr std::string_view kHttps = "https://";
constexpr std::string_view kHostEnds = "/?#\\";
constexpr std::string_view kUsualPort = ":80";
constexpr std::array<std::string_view, 6> kNearEndings = {".localhost", ".local",     ".internal",
                                                          ".lan",       ".home.arpa", ".test"};

// clang-format off
constexpr std::array<std::string_view, 12> kErrors = {
    "net::ERR_CONNECTION_REFUSED",
    "net::ERR_CONNECTION_RESET",
    "net::ERR_CONNECTION_CLOSED",
    "net::ERR_CONNECTION_TIMED_OUT",
    "net::ERR_TIMED_OUT",
    "net::ERR_ADDRESS_UNREACHABLE",
    "net::ERR_EMPTY_RESPONSE",
    "net::ERR_TOO_MANY_REDIRECTS",
    "net::ERR_TUNNEL_CONNECTION_FAILED",
    "net::ERR_FAILED", // of a redirect from https back to http, which leads to https again
    "net::ERR_CERT_",
    "net::ERR_SSL_",
};
// clang-format on

/// Engines read "127.1", "0x7f.1" and "1.2.3.4." as numbers, too.
bool IsNumber(std::string_view host) {
    const std::string_view last = host.substr(host.find_last_of('.') + 1);
    return last.find_first_not_of("0123456789") == std::string_view::npos || last.starts_with("0x");
}

bool IsOfTheWeb(std::string_view host) {
    if (host.ends_with('.'))
        host.remove_suffix(1);
    const bool isNear = std::ranges::any_of(
        kNearEndings, [&](std::string_view ending) { return host.ends_with(ending); });
    return host.find('.') != std::string_view::npos &&
           host.find_first_of(":[]") == std::string_view::npos && !isNear && !IsNumber(host);
}

} // namespace

std::optional<std::string> HttpsInstead(std::string_view address) {
    if (ToLower(address.substr(0, kHttp.size())) != kHttp)
        return std::nullopt;
    std::string_view rest = address.substr(kHttp.size());
    const std::size_t end = std::min(rest.find_first_of(kHostEnds), rest.size());
    std::string_view authority = rest.substr(0, end);
    rest.remove_prefix(end);
    // The usual port of http is none of https.
    if (authority.ends_with(kUsualPort))
        authority.remove_suffix(kUsualPort.size());
    if (!IsOfTheWeb(ToLower(authority.substr(authority.rfind('@') + 1))))
        return std::nullopt;
    return std::string(kHttps).append(authority).append(rest);
}

bool MayLackHttps(std::string_view errorName) {
    return std::ranges::any_of(
        kErrors, [&](std::string_view error) { return errorName.starts_with(error); });
}

} // namespace tallowmere
