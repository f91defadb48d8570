#include "core/portal/generated_pages.h"

#include "core/custom/multi_link.h"
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

constexpr std::array<std::string_view, 5> kFixedPages = {"ycs.htm", "ycl.htm", "ycprint.html",
                                                         "report.html", "multiweb.html"};

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

bool IsGeneratedPageName(std::string_view name) {
    if (std::ranges::find(kFixedPages, name) != kFixedPages.end())
        return true;
    return name.ends_with(kMultiLinkSuffix) &&
           MultiLinkPageName(name.substr(0, name.size() - kMultiLinkSuffix.size())) == name;
}

std::string_view GeneratedPageIn(std::string_view folder, std::string_view address) {
    if (folder.empty() || !address.starts_with(folder))
        return {};
    std::string_view name = address.substr(folder.size());
    if (!name.starts_with('/') && !name.starts_with('\\'))
        return {};
    name.remove_prefix(1);
    return IsGeneratedPageName(name) ? name : std::string_view();
}

} // namespace tallowmere
