#include "app/links/LinkSweep.h"

#include "app/base/Prompts.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/links/PaneTabs.h"
#include "app/links/RecordingState.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

LinkSweep::LinkSweep(frmMain& form, const RecordingState& recording, Prompts& prompts,
                     PaneDeck& panes, const PaneTabs& tabs, const LinkDispatch& dispatch,
                     LinkPanel& panel)
    : QObject(&form), m_form(form), m_recording(recording), m_prompts(prompts), m_panes(panes),
      m_tabs(tabs), m_dispatch(dispatch), m_panel(panel) {
    connect(form.menus->At("sweep"), &QAction::triggered, this, &LinkSweep::Toggle);
    connect(&panes, &PaneDeck::Adopted, this, [this](BrowserPane& pane) {
        if (m_isOpening)
            Await(&pane);
    });
}

void LinkSweep::Toggle() {
    if (m_isOn)
        End(tr("The sweep ended after %1 of %2 tickers").arg(m_opened).arg(m_tickers.size()));
    else
        Begin();
}

void LinkSweep::Begin() {
    m_link = m_dispatch.LastLink();
    m_tickers = m_form.List1->Items();
    m_tickers.removeDuplicates();
    m_opened = 0;
    const QString caption = m_form.lbllink.at(static_cast<std::size_t>(m_link))->Caption();
    const int room = m_tabs.Room();
    if (m_recording.templateMode)
        m_panes.ShowLastingStatus(tr("There is no sweep while a multi-link is recorded"));
    else if (m_tickers.isEmpty())
        m_panes.ShowLastingStatus(tr("There is no ticker in the list"));
    else if (!m_dispatch.HasPagePerTicker(m_link))
        m_panes.ShowLastingStatus(tr("%1 has no page of its own for each ticker").arg(caption));
    else if (room == 0)
        m_panes.ShowLastingStatus(tr("There is no room for further tabs"));
    else if (Agrees(room)) {
        m_tickers.resize(std::min<qsizetype>(m_tickers.size(), room));
        m_isOn = true;
        GoOn();
    }
}

bool LinkSweep::Agrees(int room) const {
    const auto wanted = static_cast<int>(m_tickers.size());
    if (wanted <= std::min(room, kMostUnasked))
        return true;
    const QString caption = m_form.lbllink.at(static_cast<std::size_t>(m_link))->Caption();
    QString text = tr("Open %1 in %2 tabs?").arg(caption).arg(std::min(wanted, room));
    if (wanted > room)
        text +=
            u"\n\n"_s + tr("The list has %1 tickers; there is no room for more tabs.").arg(wanted);
    return m_prompts.Ask(text, MessageTitle(), Prompts::Answer::No);
}

// A page that is there at once, or never comes, tells of it while the next one is opened.
void LinkSweep::GoOn() {
    while (m_isOn && !m_isOpening && m_opened < m_tickers.size() && m_loading.size() < kAtOnce) {
        const QString ticker = m_tickers[m_opened++];
        m_panes.ShowLastingStatus(
            tr("Sweep: %1, %2 of %3").arg(ticker).arg(m_opened).arg(m_tickers.size()));
        OpenFor(ticker);
    }
    if (m_isOn && m_opened == m_tickers.size() && m_loading.isEmpty())
        End(tr("The sweep opened %1 tabs").arg(m_opened));
}

void LinkSweep::OpenFor(const QString& ticker) {
    const QScopedValueRollback opening(m_isOpening, true);
    m_panel.Open(m_link, PagePlace::BackTab, ticker);
}

void LinkSweep::Await(BrowserPane* pane) {
    m_loading.insert(pane);
    const auto done = [this, pane] {
        if (m_loading.remove(pane))
            QMetaObject::invokeMethod(this, &LinkSweep::GoOn, Qt::QueuedConnection);
    };
    connect(pane, &BrowserPane::DocumentComplete, this, done);
    connect(pane, &QObject::destroyed, this, done);
}

void LinkSweep::End(const QString& words) {
    m_isOn = false;
    m_loading.clear();
    m_panes.ShowLastingStatus(words);
}

} // namespace tallowmere
