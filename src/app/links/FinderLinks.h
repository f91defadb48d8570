#pragma once

#include "app/base/FinderSource.h"

namespace tallowmere {

class Clock;
class LinkDispatch;
class LinkPanel;
class MenuTable;
class SitePopups;
class SiteTable;
class frmMain;

/// Offers the links of the catalogue and the items of the site menus, those that can be clicked
/// now. What is a command of a menu is offered as that.
class FinderLinks : public FinderSource {
public:
    FinderLinks(frmMain& form, const SiteTable& sites, const MenuTable& addresses,
                const WebAccess& access, const Clock& clock, const LinkDispatch& dispatch,
                LinkPanel& panel, SitePopups& popups);

    void Offer(std::vector<FinderItem>& items) override;
    QString Detail(const FinderItem& item, const QString& ticker) override;
    void Open(const FinderItem& item, PagePlace place, const QString& ticker) override;

private:
    bool CanClick(int link) const;
    void OfferMenuItems(std::vector<FinderItem>& items) const;
    std::string Address(const FinderItem& item, const QString& ticker) const;

    frmMain& m_form;
    const SiteTable& m_sites;
    const MenuTable& m_addresses;
    const WebAccess& m_access;
    const Clock& m_clock;
    const LinkDispatch& m_dispatch;
    LinkPanel& m_panel;
    SitePopups& m_popups;
};

} // namespace tallowmere
