#pragma once

#include "app/engine/BuiltAddresses.h"
#include "core/pages/history_list.h"

#include <QPointer>
#include <QStringList>

namespace tallowmere {

class EngineProfile;
class PaneNotice;
class PanePage;

/// A page that Back or Forward leads to.
struct HistoryEntry {
    int index = 0; ///< in the engine's history
    QUrl url = {};
    QString caption = {}; ///< of strangers: to be shown as plain text
};

/// Where a pane is and was, in the words that led there.
class PanePlace {
public:
    PanePlace(const EngineProfile& profile, const PaneNotice& notice);

    /// The pane has another page, or none: nothing is known of it yet.
    void SetPage(PanePage* page);
    /// The page that has just arrived was asked for as `built`.
    void Note(const QString& built);

    /// The address of what the pane shows, as built; empty before the first page.
    QString Location() const;
    /// Where the page that is shown came from, as the engine has it; empty before the first page.
    QUrl Real() const;
    /// The same as text that works in any browser; for a page of the program's own that of
    /// Location.
    QString RealAddress() const;
    /// The text of a page that was asked for as `url`, empty when it has none.
    QString OfRequest(const QUrl& url) const { return m_built.OfRequest(url); }

    /// Where Back or Forward leads from here, the nearest first.
    QList<HistoryEntry> Steps(HistorySide side) const;
    /// Whether `entry` is where it was when it was listed.
    bool Has(const HistoryEntry& entry) const;
    /// Whether that is the page behind what is told in its place.
    bool IsCovered(const HistoryEntry& entry) const;

private:
    bool HasPage() const;

    const EngineProfile& m_profile;
    const PaneNotice& m_notice;
    QPointer<PanePage> m_page;
    BuiltAddresses m_built;
};

} // namespace tallowmere
