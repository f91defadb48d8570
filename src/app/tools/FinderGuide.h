#pragma once

#include "app/base/FinderSource.h"

namespace tallowmere {

class PaneDeck;

/// Offers the sections of the user guide.
class FinderGuide : public FinderSource {
public:
    FinderGuide(const WebAccess& access, PaneDeck& panes);

    void Offer(std::vector<FinderItem>& items) override;
    QString Detail(const FinderItem& item, const QString& ticker) override;
    void Open(const FinderItem& item, PagePlace place, const QString& ticker) override;

private:
    const WebAccess& m_access;
    PaneDeck& m_panes;
};

} // namespace tallowmere
