#include "app/links/PageSource.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/links/PaneTabs.h"

#include <QPointer>

namespace tallowmere {

PageSource::PageSource(frmMain& form, PaneDeck& deck, PaneTabs& tabs)
    : QObject(&form), m_deck(deck), m_tabs(tabs) {
    connect(form.menus->At("viewSource"), &QAction::triggered, this, &PageSource::Show);
}

void PageSource::Show() {
    BrowserPane* pane = m_deck.Front();
    if (!pane->HasPage()) {
        m_deck.ShowLastingStatus(tr("There is no page whose source could be shown"));
        return;
    }
    // The engine calls back: what is done with the source comes after its call.
    pane->KeepSource(pane->RealAddress(), [guard = QPointer(this)](const QString& address) {
        if (guard)
            QMetaObject::invokeMethod(
                guard, [guard, address] { guard->m_tabs.Open(address, true); },
                Qt::QueuedConnection);
    });
}

} // namespace tallowmere
