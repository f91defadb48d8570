#pragma once

#include "core/pages/history_list.h"

#include <QObject>

class QMenu;

namespace tallowmere {

class LinkPanel;
class PaneDeck;
class frmMain;

/// The lists of pages under Back and Forward: they pop up at those two labels and stand in the menu
/// bar. A page that is chosen comes back into the pane in front.
class HistoryMenus : public QObject {
    Q_OBJECT
public:
    HistoryMenus(frmMain& form, PaneDeck& panes, LinkPanel& panel);

private:
    void Connect(QMenu* menu, HistorySide side, LinkPanel& panel);
    void Fill(QMenu& menu, HistorySide side);

    PaneDeck& m_panes;
};

} // namespace tallowmere
