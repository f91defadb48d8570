#include "app/links/LinkWalk.h"

#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "core/links/link_areas.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace tallowmere {

LinkWalk::LinkWalk(frmMain& form, PaneDeck& panes, const LinkDispatch& dispatch, LinkPanel& panel)
    : QObject(&form), m_form(form), m_panes(panes), m_dispatch(dispatch), m_panel(panel) {
    const auto step = [&](const char* command, auto method, int by) {
        connect(form.menus->At(command), &QAction::triggered, this,
                [this, method, by] { (this->*method)(by); });
    };
    step("nextTicker", &LinkWalk::GoToTicker, 1);
    step("previousTicker", &LinkWalk::GoToTicker, -1);
    step("nextLink", &LinkWalk::GoToLink, 1);
    step("previousLink", &LinkWalk::GoToLink, -1);
    form.txtStock->installEventFilter(this);
}

// The entry box has the focus most of the time. Where no cursor can be moved the keys are the walk.
bool LinkWalk::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_form.txtStock || event->type() != QEvent::ShortcutOverride ||
        !m_form.txtStock->text().isEmpty())
        return QObject::eventFilter(watched, event);
    const QKeySequence keys(static_cast<QKeyEvent*>(event)->keyCombination());
    for (const char* command : {"nextLink", "previousLink"})
        if (m_form.menus->At(command)->shortcuts().contains(keys)) {
            event->ignore();
            return true;
        }
    return QObject::eventFilter(watched, event);
}

void LinkWalk::GoToTicker(int by) {
    ListBox* list = m_form.List1;
    const int at = list->ListIndex();
    const int next = at >= 0 ? at + by : by > 0 ? 0 : list->Count() - 1;
    if (list->Count() == 0) {
        m_panes.ShowLastingStatus(tr("There is no ticker in the list"));
    } else if (next < 0 || next >= list->Count()) {
        const QString ticker = list->SelectedText();
        m_panes.ShowLastingStatus(by > 0 ? tr("%1 is the last ticker of the list").arg(ticker)
                                         : tr("%1 is the first ticker of the list").arg(ticker));
    } else {
        list->Choose(next);
        m_panel.Open(m_dispatch.LastLink(), PagePlace::Pane, {});
    }
}

bool LinkWalk::CanOpen(int link) const {
    return LeadsToPage(Catalogue()[static_cast<std::size_t>(link)]) &&
           LinkPanel::CanOpenOutside(m_form.lbllink.at(static_cast<std::size_t>(link)));
}

// Without a ticker no link is remembered as the last one: the walk would stand still.
void LinkWalk::GoToLink(int by) {
    ListBox* list = m_form.List1;
    if (list->Count() == 0) {
        m_panes.ShowLastingStatus(tr("There is no ticker in the list"));
        return;
    }
    if (list->ListIndex() < 0)
        list->Choose(0);
    const int last = m_dispatch.LastLink();
    if (const auto next = NeighbourOf(last, by, [this](int link) { return CanOpen(link); })) {
        m_panel.Open(*next, PagePlace::Pane, {});
        return;
    }
    const QString caption = m_form.lbllink.at(static_cast<std::size_t>(last))->Caption();
    m_panes.ShowLastingStatus(by > 0 ? tr("%1 is the last link of its area").arg(caption)
                                     : tr("%1 is the first link of its area").arg(caption));
}

} // namespace tallowmere
