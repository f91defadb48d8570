#pragma once

#include <QHash>
#include <QNetworkCookie>
#include <QObject>
#include <QSet>
#include <QStringList>

class QUrl;
class QWebEnginePage;
class QWebEngineProfile;

namespace tallowmere {

/// What sites keep in the engine's folder: who keeps something, and how it is cleared. Cookies and
/// what scripts store go at once. The engine offers no way to end what a site runs in the
/// background; that goes at the next start, before the engine begins.
class SiteData : public QObject {
    Q_OBJECT
public:
    /// What one site keeps.
    struct Site {
        QString host;
        int cookies = 0;
        bool hasDatabases = false;
    };

    /// `folder` is the engine's. It ends before the profile.
    SiteData(QWebEngineProfile& profile, const QString& folder);

    /// Removes from `folder` what was to be cleared at the next start, and the texts of sites
    /// ("local storage") when they take more than a quarter of a gigabyte. To be called before the
    /// engine opens the folder.
    static void ClearWhatIsDue(const QString& folder);

    /// Notes that a page or frame of a site was shown, which may keep something.
    void Note(const QUrl& page);

    /// Asks the engine for all cookies. `Changed` tells of them.
    void Load();
    /// The sites that keep something, or may, by name.
    QList<Site> Sites() const;

    /// Clears what a site and the hosts below it keep.
    void Clear(const QString& site);
    /// Clears what all sites keep, the cache, and which links were visited.
    void ClearAll();

Q_SIGNALS:
    void Changed();
    /// What can be cleared at once is cleared, but for what the origins named in `left` store: the
    /// engine refused, did not answer within ten seconds, or a page has a database open.
    void Cleared(const QStringList& left);

private:
    QStringList Stores() const;
    QStringList Origins() const;
    void Remember() const;
    void AtNextStart(const QString& what);
    void ClearNext();

    QWebEngineProfile& m_profile;
    QString m_folder;
    QHash<QString, QNetworkCookie> m_cookies;
    QSet<QString> m_origins; ///< of pages that were shown, in this run and before
    QSet<QString> m_cleared; ///< origins that were not shown since; the engine keeps empty stores
    QStringList m_toClear;   ///< origins whose stores are to be cleared
    QStringList m_left;      ///< origins whose stores could not be cleared, of the same wish
    QWebEnginePage* m_page = nullptr;
};

} // namespace tallowmere
