#pragma once

#include "app/base/FinderSource.h"

namespace tallowmere {

class LinkPanel;
class SettingsStore;
class frmMain;

/// Offers the user's own links and multi-links, those that can be clicked now.
class FinderOwnLinks : public FinderSource {
public:
    FinderOwnLinks(frmMain& form, const SettingsStore& settings, const WebAccess& access,
                   LinkPanel& panel);

    void Offer(std::vector<FinderItem>& items) override;
    QString Detail(const FinderItem& item, const QString& ticker) override;
    void Open(const FinderItem& item, PagePlace place, const QString& ticker) override;

private:
    frmMain& m_form;
    const SettingsStore& m_settings;
    const WebAccess& m_access;
    LinkPanel& m_panel;
};

} // namespace tallowmere
