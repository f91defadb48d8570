#pragma once

#include "app/base/FinderSource.h"
#include "app/engine/PanePlace.h"

#include <QPointer>

namespace tallowmere {

class BrowserPane;
class PaneDeck;
class frmMain;

/// Offers the pages that Back and Forward of the panes lead to, the nearest first.
class FinderHistory : public FinderSource {
public:
    FinderHistory(frmMain& form, PaneDeck& panes);

    void Offer(std::vector<FinderItem>& items) override;
    QString Detail(const FinderItem& item, const QString& ticker) override;
    void Open(const FinderItem& item, PagePlace place, const QString& ticker) override;

private:
    struct Step {
        QPointer<BrowserPane> pane;
        HistoryEntry entry;
        QString Address() const;
    };
    const Step* StepOf(const FinderItem& item) const;

    frmMain& m_form;
    PaneDeck& m_panes;
    std::vector<Step> m_steps; ///< as they were offered last; a key is a place in them
};

} // namespace tallowmere
