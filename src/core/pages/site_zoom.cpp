#include "core/pages/site_zoom.h"

#include "core/pages/page_zoom.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace tallowmere {

namespace {

constexpr std::string_view kOwnSite = "portal:"; // no host has a colon
constexpr std::size_t kLongestSite = 255;        // no name is longer

struct Entry {
    std::string_view site;
    int percent;
};

bool IsSite(std::string_view text) {
    return !text.empty() && text.size() <= kLongestSite &&
           std::ranges::all_of(text, [](char c) { return c > ' ' && c < '\x7f' && c != '|'; });
}

/// The percent of a text, the usual ones where it says none that a page can have.
int ReadPercent(std::string_view text) {
    int percent = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), percent);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size();
    return isNumber && PageZoom::IsPossible(percent) ? percent : kUsualPercent;
}

std::vector<Entry> ReadEntries(std::string_view list) {
    std::vector<Entry> entries;
    while (!list.empty() && entries.size() < kMostZoomSites) {
        const std::string_view text = list.substr(0, list.find('|'));
        list.remove_prefix(std::min(text.size() + 1, list.size()));
        const std::size_t blank = text.find(' ');
        if (blank == std::string_view::npos)
            continue;
        const Entry entry{text.substr(0, blank), ReadPercent(text.substr(blank + 1))};
        if (IsSite(entry.site) && entry.percent != kUsualPercent)
            entries.push_back(entry);
    }
    return entries;
}

} // namespace

std::string ZoomSite(std::string_view scheme, std::string_view host) {
    if (scheme == "portal")
        return std::string(kOwnSite);
    if (scheme != "http" && scheme != "https")
        return {};
    std::string site = ToLower(host);
    while (site.ends_with('.'))
        site.pop_back();
    // What is left has to be a name of its own.
    if (site.starts_with("www.") && site.find('.', 4) != std::string::npos)
        site.erase(0, 4);
    return IsSite(site) ? site : std::string();
}

int ZoomPercent(std::string_view list, std::string_view site) {
    for (const Entry& entry : ReadEntries(list))
        if (entry.site == site)
            return entry.percent;
    return kUsualPercent;
}

std::string WithZoom(std::string_view list, std::string_view site, int percent) {
    if (!IsSite(site))
        return std::string(list);
    std::string result;
    int count = 0;
    const auto add = [&](const Entry& entry) {
        if (count++ < kMostZoomSites)
            result.append(entry.site).append(" ").append(std::to_string(entry.percent)).append("|");
    };
    if (percent != kUsualPercent && PageZoom::IsPossible(percent))
        add({site, percent});
    for (const Entry& entry : ReadEntries(list))
        if (entry.site != site)
            add(entry);
    return result;
}

} // namespace tallowmere
