#pragma once

#include <QObject>
#include <QPointer>

#include <memory>
#include <string>
#include <vector>

class QWebEngineProfile;

namespace tallowmere {

class DownloadList;
class FindText;
class MailClicks;
class Prompts;
class RequestRedirector;
class SiteData;
class SiteZooms;
class SourcePages;
class WebAccess;

/// The one profile of all panes: what sites store lives in it and survives a restart, and what
/// pages may do is decided in it. Pages belong to it and end before it.
class EngineProfile : public QObject {
    Q_OBJECT
public:
    /// `storageFolder` is made, for its owner alone, and holds cookies, logins and the cache;
    /// `programFolder` holds the generated pages.
    EngineProfile(const QString& storageFolder, const QString& programFolder,
                  const WebAccess& access, Prompts& prompts, QObject* parent = nullptr);
    ~EngineProfile() override;

    QWebEngineProfile& Engine() { return *m_engine; }
    const WebAccess& Access() const { return m_access; }
    /// The next page that a pane asks for at the host of `url` is loaded as its address stands.
    void LetPass(const QUrl& url);
    /// Where the engine finds what `address` names: a page of the web, or of the program's own,
    /// which goes by the path of its file. Invalid for what is not shown here.
    QUrl UrlOf(const QString& address) const;
    /// The address, as built, that stands for one which the engine names: the other way round.
    QString AddressOf(const QUrl& url) const;
    /// Which links to mails are clicked.
    const MailClicks& Mails() const { return *m_mails; }
    /// The files that sites gave.
    DownloadList& Downloads() { return *m_downloads; }
    /// What sites keep.
    SiteData& Sites() { return *m_sites; }
    /// How large their pages are shown.
    SiteZooms& Zooms() { return *m_zooms; }
    /// The sources of pages that are shown.
    SourcePages& Sources() { return *m_sources; }
    /// The text that was searched for last.
    FindText& Finding() { return *m_finding; }
    /// The sites that get cookies when other sites call them in, and whose pages' others do.
    void LetCrossSites(const std::vector<std::string>& sites);

Q_SIGNALS:
    /// A pane is about to load a page. While a page waits for an answer the engine does nothing
    /// else; so what is open then ends without one.
    void PageWanted();
    /// The user agreed to write a mail that a page asks for: a clean "mailto:" address.
    void MailWanted(const QString& address);
    /// The user wants to see what a site keeps.
    void SiteDataWanted(const QString& host);

private:
    const WebAccess& m_access;
    QString m_programFolder;
    struct CookieRule;
    std::shared_ptr<CookieRule> m_cookieRule;
    std::unique_ptr<QWebEngineProfile> m_engine;
    std::unique_ptr<MailClicks> m_mails;
    std::unique_ptr<SiteData> m_sites; ///< ends before the engine
    std::unique_ptr<DownloadList> m_downloads;
    std::unique_ptr<SiteZooms> m_zooms;
    std::unique_ptr<SourcePages> m_sources;
    std::unique_ptr<FindText> m_finding;
    RequestRedirector* m_redirector;
};

} // namespace tallowmere
