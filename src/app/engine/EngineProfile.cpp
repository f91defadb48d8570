#include "app/engine/EngineProfile.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/DownloadList.h"
#include "app/engine/FindText.h"
#include "app/engine/MailClicks.h"
#include "app/engine/PagePermissions.h"
#include "app/engine/PanePage.h"
#include "app/engine/PortalScheme.h"
#include "app/engine/RequestRedirector.h"
#include "app/engine/SiteData.h"
#include "app/engine/SiteQuota.h"
#include "app/engine/SiteZooms.h"
#include "app/engine/SourcePages.h"
#include "core/pages/site_data.h"
#include "core/portal/generated_pages.h"

#include <QDir>
#include <QFile>
#include <QWebEngineCookieStore>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include <mutex>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCacheSize = 250'000'000;

void ApplySettings(QWebEngineSettings& settings) {
    // Together these two would let a local page read any file of the user and send it out.
    settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings.setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
    // No page starts a program: of what a click asks for, the page itself is asked, and refuses it
    // in words; what nobody clicked is not even asked about.
    settings.setUnknownUrlSchemePolicy(
        QWebEngineSettings::AllowUnknownUrlSchemesFromUserInteraction);
    // The pane that is asked has to grant it.
    settings.setAttribute(QWebEngineSettings::FullScreenSupportEnabled, true);
    settings.setAttribute(QWebEngineSettings::ScreenCaptureEnabled, false);
    // The panes say themselves what went wrong.
    settings.setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    settings.setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
}

void MakePrivateFolder(const QString& path) {
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

/// Which sites get cookies. The engine asks from a thread of its own.
struct EngineProfile::CookieRule {
    std::mutex mutex;
    std::vector<std::string> crossing;

    bool Allows(const QWebEngineCookieStore::FilterRequest& request) {
        // Who is framed or called in by another site has no business with who the user is.
        if (!request.thirdParty)
            return true;
        const std::scoped_lock lock(mutex);
        return MayCrossSites(FromQt(request.firstPartyUrl.host()), FromQt(request.origin.host()),
                             crossing);
    }
};

EngineProfile::EngineProfile(const QString& storageFolder, const QString& programFolder,
                             const WebAccess& access, Prompts& prompts, QObject* parent)
    : QObject(parent), m_access(access), m_programFolder(programFolder),
      m_cookieRule(std::make_shared<CookieRule>()),
      m_engine(std::make_unique<QWebEngineProfile>(u"tallowmere"_s)),
      m_zooms(std::make_unique<SiteZooms>()), m_sources(std::make_unique<SourcePages>()),
      m_finding(std::make_unique<FindText>()) {
    MakePrivateFolder(storageFolder);
    SiteData::ClearWhatIsDue(storageFolder);
    BoundSiteStorage(storageFolder);
    m_engine->setPersistentStoragePath(storageFolder);
    m_engine->setCachePath(storageFolder + u"/cache"_s);
    m_engine->setHttpCacheType(QWebEngineProfile::DiskHttpCache);
    m_engine->setPersistentCookiesPolicy(QWebEngineProfile::ForcePersistentCookies);
    PagePermissions::RememberForThisRun(*m_engine);
    ApplySettings(*m_engine->settings());
    m_engine->setHttpCacheMaximumSize(kCacheSize);
    m_engine->cookieStore()->setCookieFilter(
        [rule = m_cookieRule](const QWebEngineCookieStore::FilterRequest& request) {
            return rule->Allows(request);
        });
    m_mails = std::make_unique<MailClicks>(*m_engine);
    m_sites = std::make_unique<SiteData>(*m_engine, storageFolder);
    m_redirector = new RequestRedirector(access, this);
    connect(m_redirector, &RequestRedirector::PageAsked, m_sites.get(), &SiteData::Note);
    m_engine->setUrlRequestInterceptor(m_redirector);
    m_engine->installUrlSchemeHandler(PortalAddress::Scheme().toLatin1(),
                                      new PortalScheme(access, programFolder, *m_sources, this));
    m_downloads = std::make_unique<DownloadList>(*m_engine, prompts);
}

EngineProfile::~EngineProfile() {
    qDeleteAll(findChildren<QWebEnginePage*>(Qt::FindDirectChildrenOnly));
}

void EngineProfile::LetCrossSites(const std::vector<std::string>& sites) {
    const std::scoped_lock lock(m_cookieRule->mutex);
    m_cookieRule->crossing = sites;
}

void EngineProfile::LetPass(const QUrl& url) {
    m_redirector->LetPass(url);
}

QUrl EngineProfile::UrlOf(const QString& address) const {
    const std::string page(GeneratedPageIn(m_programFolder.toStdString(), address.toStdString()));
    if (!page.empty())
        return PortalAddress::Page(page);
    QUrl url = UrlFromAddress(address);
    const bool isWeb = url.isValid() && IsWebUrl(url) && !url.host().isEmpty();
    if (!isWeb && !PortalAddress::IsOwn(url) && url != QUrl(u"about:blank"_s))
        return {};
    return url;
}

QString EngineProfile::AddressOf(const QUrl& url) const {
    if (PortalAddress::IsPage(url))
        return m_programFolder + url.path(QUrl::FullyDecoded);
    return QString::fromLatin1(WebAccess::AsBuilt(url).toEncoded());
}

} // namespace tallowmere
