#include "app/engine/SiteZooms.h"

#include "core/pages/site_zoom.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"

namespace tallowmere {

std::string SiteZooms::List() const {
    return m_settings ? UsableSetting(*m_settings, kZoomSection, kZoomSitesKey) : m_list;
}

int SiteZooms::PercentOf(const std::string& site) const {
    return ZoomPercent(List(), site);
}

void SiteZooms::Set(const std::string& site, int percent) {
    std::string list = WithZoom(List(), site, percent);
    if (m_settings)
        m_settings->ChangeSettings(
            {{std::string(kZoomSection), std::string(kZoomSitesKey),
              list.empty() ? std::nullopt : std::optional<std::string>(list)}});
    m_list = std::move(list);
    Q_EMIT Changed(site);
}

} // namespace tallowmere
