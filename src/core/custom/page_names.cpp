#include "core/custom/page_names.h"

#include "core/custom/custom_link.h"
#include "core/custom/multi_link.h"
#include "core/links/address.h"
#include "core/links/chart_page.h"

namespace tallowmere {

namespace {

// A page of charts lies in a file, wherever the profile is.
std::string_view ChartPageName(std::string_view address) {
    const std::string_view file = address.substr(address.find_last_of("/\\") + 1);
    const bool isSmall = file == kSmallChartsFile;
    if (!isSmall && file != kLargeChartsFile)
        return {};
    for (const LinkRow& row : Catalogue())
        if (row.action == (isSmall ? LinkAction::SmallCharts : LinkAction::LargeCharts))
            return row.tooltip;
    return {};
}

std::string HostName(std::string_view address) {
    const std::string host = SplitAddress(address).first;
    constexpr std::string_view kUsual = "www.";
    return host.starts_with(kUsual) ? host.substr(kUsual.size()) : host;
}

} // namespace

PageNames::PageNames(const SiteTable& sites, const SettingsStore& settings)
    : m_catalogue(sites), m_settings(settings) {
    const TickerForms fields{"{upper}", "{lower}", "{first}"};
    for (int slot = kFirstCustom; slot <= kLastCustom; ++slot) {
        const std::string address = LoadCustomLink(settings, slot).address;
        if (!address.empty() && !IsMultiLink(address))
            m_own.Add(ExpandPlaceholders(address, fields), static_cast<std::size_t>(slot));
    }
}

std::string PageNames::Of(std::string_view address) const {
    if (const std::string_view charts = ChartPageName(address); !charts.empty())
        return std::string(charts);
    if (const auto hit = m_own.Find(address))
        return LoadCustomLink(m_settings, static_cast<int>(hit->id)).title;
    if (const auto match = m_catalogue.Match(address))
        return std::string(Catalogue()[static_cast<std::size_t>(match->index)].tooltip);
    const std::string host = HostName(address);
    return host.empty() ? std::string(address) : host;
}

} // namespace tallowmere
