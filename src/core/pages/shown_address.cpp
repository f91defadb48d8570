#include "core/pages/shown_address.h"

#include "core/links/web_address.h"
#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kLongestShown = 2000;

std::string WithoutUsualPort(std::string_view host, std::string_view port) {
    const std::size_t colon = host.rfind(':');
    const bool isUsual = colon != std::string_view::npos && host.substr(colon + 1) == port;
    const bool isEmpty = host.ends_with(':');
    return ToLower(isUsual || isEmpty ? host.substr(0, colon) : host);
}

} // namespace

ShownAddress ShowAddress(std::string_view address) {
    const std::string clean = WithoutHiddenCharacters(FrontOf(Trim(address), kLongestShown), '?');
    const std::string_view text = clean;
    ShownAddress shown;
    const std::size_t colon = text.find(':');
    const std::string scheme = SchemeOf(text);
    if (scheme.empty() || !text.substr(colon).starts_with("://")) {
        shown.scheme = scheme.empty() ? std::string() : scheme + ":";
        shown.rest = text.substr(scheme.empty() ? 0 : colon + 1);
        return shown;
    }
    shown.scheme = scheme + "://";
    shown.safety = scheme == "https"  ? Safety::Encrypted
                   : scheme == "http" ? Safety::Open
                                      : Safety::Own;
    const std::string_view behind = text.substr(colon + 3);
    const std::size_t hostEnd = std::min(behind.find_first_of("/\\?#"), behind.size());
    std::string_view host = behind.substr(0, hostEnd);
    if (const std::size_t at = host.rfind('@'); at != std::string_view::npos)
        host.remove_prefix(at + 1);
    shown.host = WithoutUsualPort(host, scheme == "https" ? "443" : "80");
    shown.rest = behind.substr(hostEnd);
    if (shown.rest == "/")
        shown.rest.clear();
    return shown;
}

bool StandsForAnother(std::string_view built, std::string_view real) {
    if (Trim(built).empty())
        return false;
    const ShownAddress a = ShowAddress(WithScheme(built));
    const ShownAddress b = ShowAddress(real);
    return a.scheme != b.scheme || a.host != b.host || ToLower(a.rest) != ToLower(b.rest);
}

} // namespace tallowmere
