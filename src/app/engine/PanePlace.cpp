#include "app/engine/PanePlace.h"

#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"

#include <QWebEngineHistory>

namespace tallowmere {

PanePlace::PanePlace(const EngineProfile& profile, const PaneNotice& notice)
    : m_profile(profile), m_notice(notice) {}

void PanePlace::SetPage(PanePage* page) {
    m_page = page;
    m_built = {};
}

void PanePlace::Note(const QString& built) {
    m_built.Note(*m_page->history(), built);
}

bool PanePlace::HasPage() const {
    return m_page && m_page->history()->count() > 0;
}

QString PanePlace::Location() const {
    if (m_notice.HasLostPage())
        return m_notice.Address();
    if (!HasPage())
        return {};
    const QString built = m_built.OfCurrent(*m_page->history());
    return built.isEmpty() ? m_profile.AddressOf(m_page->url()) : built;
}

// The engine's own word for the page is already that of the next one while this one still stands
// there.
QUrl PanePlace::Real() const {
    return HasPage() ? m_page->history()->currentItem().url() : QUrl();
}

QString PanePlace::RealAddress() const {
    const QUrl url = Real();
    if (m_notice.Why() != PaneNotice::Reason::None || !IsWebUrl(url))
        return Location();
    return QString::fromLatin1(url.toEncoded(QUrl::RemoveUserInfo));
}

QList<HistoryEntry> PanePlace::Steps(HistorySide side) const {
    QList<HistoryEntry> entries;
    if (!HasPage())
        return entries;
    const QWebEngineHistory& history = *m_page->history();
    for (const int index : HistorySteps(history.currentItemIndex(), history.count(), side,
                                        m_notice.CoversIntactPage())) {
        const QWebEngineHistoryItem item = history.itemAt(index);
        const std::string address = FromQt(m_profile.AddressOf(item.url()));
        entries << HistoryEntry{index, item.url(),
                                ToQt(HistoryCaption(FromQt(item.title()), address))};
    }
    return entries;
}

bool PanePlace::Has(const HistoryEntry& entry) const {
    return HasPage() && entry.index < m_page->history()->count() &&
           m_page->history()->itemAt(entry.index).url() == entry.url;
}

bool PanePlace::IsCovered(const HistoryEntry& entry) const {
    return m_notice.CoversIntactPage() && HasPage() &&
           m_page->history()->currentItemIndex() == entry.index;
}

} // namespace tallowmere
