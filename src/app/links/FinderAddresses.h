#pragma once

#include "app/base/FinderSource.h"

namespace tallowmere {

class PaneDeck;
class SettingsStore;

/// Offers the addresses that smart navigate remembers, and opens any address that is typed.
class FinderAddresses : public FinderSource {
public:
    FinderAddresses(const SettingsStore& settings, const WebAccess& access, PaneDeck& panes);

    void Offer(std::vector<FinderItem>& items) override;
    std::optional<FinderItem> Read(std::string_view line) override;
    QString Detail(const FinderItem& item, const QString& ticker) override;
    void Open(const FinderItem& item, PagePlace place, const QString& ticker) override;

private:
    const SettingsStore& m_settings;
    const WebAccess& m_access;
    PaneDeck& m_panes;
};

} // namespace tallowmere
