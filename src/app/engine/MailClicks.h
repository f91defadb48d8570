#pragma once

#include <QElapsedTimer>
#include <QUrl>

class QWebEngineProfile;

namespace tallowmere {

/// Sees which links to a mail the user clicks, in pages and in their frames; the engine itself
/// does not tell a frame's link from its script. A script in a world of its own, which no page can
/// reach into, watches for clicks of the user's own hand and says their links on the console, under
/// a word that no page knows.
class MailClicks {
public:
    explicit MailClicks(QWebEngineProfile& profile);

    /// The "mailto:" address that a line of the console tells of; invalid when it is a page's line.
    QUrl Read(const QString& line) const;

private:
    QString m_word;
};

/// The mail link of a page that was clicked last.
class ClickedMail {
public:
    void Note(const QUrl& address);
    /// Whether it is the one at `address`, and was clicked a moment ago. A click counts once.
    bool Take(const QUrl& address);

private:
    QUrl m_address;
    QElapsedTimer m_since;
};

} // namespace tallowmere
