#include "app/engine/PageView.h"

#include "app/base/WebAccess.h"
#include "app/engine/FindBar.h"
#include "app/engine/PageRest.h"
#include "app/engine/PanePage.h"
#include "app/engine/UserInput.h"

#include <QMenu>
#include <QPointer>
#include <QWebEngineFindTextResult>
#include <QWebEngineHistory>

namespace tallowmere {

PageView::PageView(PanePage& page, FindBar& findBar, QWidget* parent)
    : QWebEngineView(&page, parent), m_input(new UserInput(this)) {
    page.SetUserInput(m_input);
    new PageRest(*this, page);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &PageView::ShowMenu);
    connect(&findBar, &FindBar::Wanted, this,
            [this, &findBar](const QString& text, bool isBackward) {
                Find(findBar, text, isBackward);
            });
    connect(&findBar, &FindBar::Closed, this, [this] { setFocus(); });
}

void PageView::Find(FindBar& bar, const QString& text, bool isBackward) {
    const int search = ++m_searches;
    page()->findText(text, isBackward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags(),
                     [view = QPointer(this), bar = QPointer(&bar),
                      search](const QWebEngineFindTextResult& result) {
                         // One that another overtook has found nothing.
                         if (view && bar && search == view->m_searches)
                             bar->ShowMatch(result.activeMatch(), result.numberOfMatches());
                     });
}

void PageView::ShowMenu(QPoint position) {
    QMenu* menu = createStandardContextMenu();
    for (const auto action :
         {QWebEnginePage::ViewSource, QWebEnginePage::OpenLinkInNewWindow,
          QWebEnginePage::OpenLinkInNewTab, QWebEnginePage::OpenLinkInNewBackgroundTab})
        menu->removeAction(page()->action(action));
    // The page's own address is already that of the next one while this one still stands there.
    const QUrl shown = history()->currentItem().url();
    if (IsWebUrl(shown)) {
        menu->addSeparator();
        menu->addAction(tr("&Data of %1...").arg(shown.host()),
                        [this, shown] { Q_EMIT SiteDataWanted(shown.host()); });
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(mapToGlobal(position));
}

} // namespace tallowmere
