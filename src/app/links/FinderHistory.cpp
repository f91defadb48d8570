#include "app/links/FinderHistory.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"

namespace tallowmere {

namespace {

constexpr std::string_view kKey = "history ";

} // namespace

FinderHistory::FinderHistory(frmMain& form, PaneDeck& panes) : m_form(form), m_panes(panes) {}

QString FinderHistory::Step::Address() const {
    return WebAccess::AsBuilt(entry.url).toString(QUrl::FullyEncoded);
}

void FinderHistory::Offer(std::vector<FinderItem>& items) {
    m_steps.clear();
    for (BrowserPane* pane : m_form.Panes())
        for (const HistorySide side : {HistorySide::Back, HistorySide::Forward})
            for (const HistoryEntry& entry : pane->Steps(side)) {
                m_steps.push_back({pane, entry});
                items.push_back({FinderKind::History,
                                 FromQt(entry.caption),
                                 FromQt(m_steps.back().Address()),
                                 std::string(kKey) + std::to_string(m_steps.size() - 1),
                                 {},
                                 0});
            }
}

const FinderHistory::Step* FinderHistory::StepOf(const FinderItem& item) const {
    const std::size_t at = std::stoul(item.key.substr(kKey.size()));
    return at < m_steps.size() && m_steps[at].pane ? &m_steps[at] : nullptr;
}

QString FinderHistory::Detail(const FinderItem& item, const QString&) {
    const Step* step = StepOf(item);
    return step ? QUrl(step->Address()).host() : QString();
}

// Pages of the program's own live in the pane that showed them.
void FinderHistory::Open(const FinderItem& item, PagePlace place, const QString&) {
    const Step* step = StepOf(item);
    if (!step)
        return;
    if (place != PagePlace::Pane && IsWebUrl(WebAccess::AsBuilt(step->entry.url))) {
        m_panes.NavigateIn(place, step->Address());
        return;
    }
    m_panes.Show(step->pane);
    if (step->pane->Busy())
        step->pane->Stop();
    step->pane->GoTo(step->entry);
}

} // namespace tallowmere
