#pragma once

#include "app/base/FinderSource.h"

class QAction;

namespace tallowmere {

class frmMain;

/// Offers the commands of the main window, with their shortcuts: those that can be given now and
/// need nothing but themselves. Portfolios are offered by who keeps them.
class FinderCommands : public FinderSource {
public:
    explicit FinderCommands(frmMain& form);

    void Offer(std::vector<FinderItem>& items) override;
    QString Detail(const FinderItem& item, const QString& ticker) override;
    void Open(const FinderItem& item, PagePlace place, const QString& ticker) override;

private:
    QAction* ActionOf(const FinderItem& item) const;

    frmMain& m_form;
};

} // namespace tallowmere
