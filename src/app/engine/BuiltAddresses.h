#pragma once

#include <QHash>
#include <QString>
#include <QUrl>

#include <utility>

class QWebEngineHistory;

namespace tallowmere {

/// Which text, as it was built, each page of a pane's history was asked for with. The engine itself
/// knows only where that led: to a stand-in, through redirects.
class BuiltAddresses {
public:
    /// The page that `history` is at was asked for with `address`. What the history has forgotten
    /// is forgotten here too, from time to time.
    void Note(const QWebEngineHistory& history, const QString& address);

    /// The text of the page that `history` is at, empty when it has none.
    QString OfCurrent(const QWebEngineHistory& history) const;

    /// The text of a page that was asked for as `url`, empty when it has none.
    QString OfRequest(const QUrl& url) const { return m_requested.value(url); }

private:
    void Forget(const QWebEngineHistory& history);

    QHash<QUrl, QString> m_requested;
    /// The same by place in the history and the address that it led to: on the way back the
    /// history has forgotten what was requested.
    QHash<std::pair<int, QUrl>, QString> m_arrived;
};

} // namespace tallowmere
