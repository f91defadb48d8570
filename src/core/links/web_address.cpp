#include "core/links/web_address.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view kSchemeCharacters = "abcdefghijklmnopqrstuvwxyz0123456789+-.";

// Schemes that are known by their name alone, because no "//" need follow them.
constexpr std::array<std::string_view, 7> kOpaqueSchemes = {
    "about", "blob", "data", "javascript", "mailto", "vbscript", "view-source"};

} // namespace

std::string SchemeOf(std::string_view address) {
    address = Trim(address);
    const std::size_t colon = address.find(':');
    if (colon == std::string_view::npos)
        return {};
    std::string scheme = ToLower(address.substr(0, colon));
    if (scheme.find_first_of(kLetters) != 0 ||
        scheme.find_first_not_of(kSchemeCharacters) != std::string::npos)
        return {};
    const bool isOpaque = std::ranges::find(kOpaqueSchemes, scheme) != kOpaqueSchemes.end();
    const bool hasSlashes = address.substr(colon).starts_with("://");
    // "file:" is the one hierarchical scheme that engines accept without its slashes.
    return isOpaque || hasSlashes || scheme == "file" ? scheme : std::string();
}

std::string WithScheme(std::string_view address) {
    address = Trim(address);
    if (address.empty() || !SchemeOf(address).empty())
        return std::string(address);
    return "http://" + std::string(address);
}

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
