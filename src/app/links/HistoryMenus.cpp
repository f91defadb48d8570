#include "app/links/HistoryMenus.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"

#include <QPointer>

namespace tallowmere {

HistoryMenus::HistoryMenus(frmMain& form, PaneDeck& panes, LinkPanel& panel)
    : QObject(&form), m_panes(panes) {
    Connect(form.menus->backMenu, HistorySide::Back, panel);
    Connect(form.menus->forwardMenu, HistorySide::Forward, panel);
    connect(&panel, &LinkPanel::HistoryRequested, this,
            [&form](HistorySide side, const QPoint& position) {
                QMenu* menu =
                    side == HistorySide::Back ? form.menus->backMenu : form.menus->forwardMenu;
                menu->popup(position);
            });
}

void HistoryMenus::Connect(QMenu* menu, HistorySide side, LinkPanel& panel) {
    connect(menu, &QMenu::aboutToShow, this, [this, menu, side] { Fill(*menu, side); });
    connect(menu, &QMenu::aboutToShow, &panel, [&panel] { panel.Hold(true); });
    connect(menu, &QMenu::aboutToHide, &panel, [&panel] { panel.Hold(false); });
}

void HistoryMenus::Fill(QMenu& menu, HistorySide side) {
    menu.clear();
    const QPointer<BrowserPane> pane = m_panes.Front();
    for (const HistoryEntry& entry : pane->Steps(side))
        menu.addAction(MenuCaption(entry.caption), [pane, entry] {
            if (!pane)
                return;
            if (pane->Busy())
                pane->Stop();
            pane->GoTo(entry);
        });
    if (menu.isEmpty())
        menu.addAction(side == HistorySide::Back ? tr("No page before this one")
                                                 : tr("No page after this one"))
            ->setEnabled(false);
}

} // namespace tallowmere
