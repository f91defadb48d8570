#pragma once

#include <string>
#include <string_view>

/// How large the pages of each site are shown, as the settings keep it: site, blank, percent and a
/// bar for each, the one that was set last in front.
namespace tallowmere {

inline constexpr std::string_view kZoomSection = "Zoom";
inline constexpr std::string_view kZoomSitesKey = "Sites";
inline constexpr int kUsualPercent = 100;
inline constexpr int kMostZoomSites = 200;

/// The site whose pages share their size, by scheme and host of a page: the host without "www." in
/// front. What the program itself makes is one site. Empty for a page that belongs to none.
std::string ZoomSite(std::string_view scheme, std::string_view host);

/// The percent at which `list` says that the pages of `site` are shown; the usual ones where it
/// says nothing, or nothing usable.
int ZoomPercent(std::string_view list, std::string_view site);

/// The list with `site` in front at that percent, or without it when those are the usual ones. What
/// is of no use in the list goes, and so do the oldest sites beyond the most that are kept.
std::string WithZoom(std::string_view list, std::string_view site, int percent);

} // namespace tallowmere
