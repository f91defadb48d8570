#include "core/pages/shown_address.h"

#include "core/links/web_address.h"
#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kLongestShown = 2000;
constexpr std::size_t kLongestHost = 255; // no name is longer
constexpr std::size_t kLongestScheme = 50;

std::string WithoutUsualPort(std::string_view host, std::string_view port) {
    const std::size_t colon = host.rfind(':');
    const bool isUsual = colon != std::string_view::npos && host.substr(colon + 1) == port;
    const bool isEmpty = host.ends_with(':');
    return ToLower(isUsual || isEmpty ? host.substr(0, colon) : host);
}

/// The end of a text, which is what tells one host from another, no character torn.
std::string_view EndOf(std::string_view text, std::size_t bytes) {
    return text.size() <= bytes ? text : text.substr(FrontOf(text, text.size() - bytes + 3).size());
}

/// The parts of an address, of any length.
ShownAddress PartsOf(std::string_view text) {
    ShownAddress shown;
    const std::size_t colon = text.find(':');
    const std::string scheme = SchemeOf(text);
    if (scheme.empty() || scheme.size() > kLongestScheme) {
        shown.rest = text;
        return shown;
    }
    if (!text.substr(colon).starts_with("://")) {
        shown.scheme = scheme + ":";
        shown.rest = text.substr(colon + 1);
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
    shown.host = EndOf(WithoutUsualPort(host, scheme == "https" ? "443" : "80"), kLongestHost);
    shown.rest = behind.substr(hostEnd);
    if (shown.rest == "/")
        shown.rest.clear();
    return shown;
}

} // namespace

ShownAddress ShowAddress(std::string_view address) {
    // Whole, so that a name or a password that is long enough does not push the host out.
    ShownAddress shown = PartsOf(Trim(WithoutHiddenCharacters(address, '?')));
    shown.rest = FrontOf(shown.rest, kLongestShown - shown.scheme.size() - shown.host.size());
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
