#include "app/engine/SiteData.h"

#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "core/pages/site_data.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTimer>
#include <QWebEngineCookieStore>
#include <QWebEnginePage>
#include <QWebEngineProfile>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kOrigins = "/origins.txt"_L1;
constexpr auto kDue = "/clear-at-start.txt"_L1;
constexpr auto kEverything = "*"_L1;
constexpr auto kTexts = "/Local Storage"_L1;
constexpr qint64 kMostTexts = 250'000'000;
constexpr qsizetype kMostOrigins = 10'000;
constexpr auto kPatience = std::chrono::seconds(10);

// It runs in an empty page that has the site's origin and nothing else of the site.
constexpr auto kClear = R"(
(async () => {
    let left = false;
    const attempt = async action => { try { await action() } catch (refusal) { left = true } };
    await attempt(() => localStorage.clear());
    await attempt(async () => {
        for (const base of await indexedDB.databases())
            await new Promise((done, fail) => {
                const wish = indexedDB.deleteDatabase(base.name);
                wish.onsuccess = done;
                wish.onerror = wish.onblocked = fail;
            });
    });
    // Sites without https have neither of the following.
    await attempt(async () => {
        for (const name of await self.caches?.keys() ?? [])
            await caches.delete(name);
    });
    await attempt(async () => {
        const files = await navigator.storage?.getDirectory?.();
        for await (const name of files?.keys() ?? [])
            await files.removeEntry(name, {recursive: true});
    });
    document.title = left ? 'left' : 'cleared';
})()
)";

QString KeyOf(const QNetworkCookie& cookie) {
    return cookie.domain() + u'\n' + cookie.path() + u'\n' + QString::fromLatin1(cookie.name());
}

std::string HostOf(const QNetworkCookie& cookie) {
    return HostOfDomain(FromQt(cookie.domain()));
}

bool IsOf(const QString& origin, const QString& site) {
    return IsOfSite(FromQt(QUrl(origin).host()), FromQt(site));
}

QString ReadText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.read(kMegabyte)) : QString();
}

QStringList ReadLines(const QString& path) {
    return ReadText(path).split(u'\n', Qt::SkipEmptyParts);
}

void WriteLines(const QString& path, const QStringList& lines) {
    try {
        WriteWholeFile(ToPath(path), FromQt(lines.join(u'\n')));
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "tallowmere: %s\n", error.what());
    }
}

// Lines are added one by one: what follows the last end of line was cut off by a crash.
QSet<QString> ReadOrigins(const QString& folder) {
    QString text = ReadText(folder + kOrigins);
    const qsizetype whole = text.lastIndexOf(u'\n') + 1;
    if (whole < text.size()) {
        text.truncate(whole);
        WriteLines(folder + kOrigins, {text});
    }
    const QStringList origins = text.split(u'\n', Qt::SkipEmptyParts);
    return {origins.begin(), origins.end()};
}

/// The folders of single sites among the engine's stores.
QFileInfoList StoresIn(const QString& folder) {
    QFileInfoList stores;
    for (const QString& kind : {u"/IndexedDB"_s, u"/databases"_s})
        stores += QDir(folder + kind).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    return stores;
}

qint64 SizeOf(const QString& folder) {
    qint64 size = 0;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        size += files.fileInfo().size();
    }
    return size;
}

bool RemoveAll(const QString& folder) {
    bool isGone = true;
    const auto entries = QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                    QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        const QString path = entry.absoluteFilePath();
        // Cookies went at once; the ones that came since are new.
        if (entry.fileName().startsWith("Cookies"_L1) || path.endsWith(kDue))
            continue;
        const bool isFolder = entry.isDir() && !entry.isSymLink();
        isGone = (isFolder ? QDir(path).removeRecursively() : QFile::remove(path)) && isGone;
    }
    return isGone;
}

bool RemoveOf(const QString& folder, const QStringList& sites) {
    bool isGone = true;
    for (const QFileInfo& store : StoresIn(folder)) {
        const QString origin = ToQt(OriginOfFolder(FromQt(store.fileName())));
        if (std::any_of(sites.begin(), sites.end(),
                        [&](const QString& site) { return IsOf(origin, site); }))
            isGone = QDir(store.absoluteFilePath()).removeRecursively() && isGone;
    }
    // They cannot be told apart by site. What is lost with them comes back with the next visit.
    for (const QString& kind : {u"/Service Worker"_s, u"/File System"_s})
        isGone = QDir(folder + kind).removeRecursively() && isGone;
    return isGone;
}

} // namespace

SiteData::SiteData(QWebEngineProfile& profile, const QString& folder)
    : m_profile(profile), m_folder(folder), m_origins(ReadOrigins(folder)) {
    connect(profile.cookieStore(), &QWebEngineCookieStore::cookieAdded, this,
            [this](const QNetworkCookie& cookie) {
                m_cookies.insert(KeyOf(cookie), cookie);
                Q_EMIT Changed();
            });
    connect(profile.cookieStore(), &QWebEngineCookieStore::cookieRemoved, this,
            [this](const QNetworkCookie& cookie) {
                m_cookies.remove(KeyOf(cookie));
                Q_EMIT Changed();
            });
}

void SiteData::ClearWhatIsDue(const QString& folder) {
    const QStringList due = ReadLines(folder + kDue);
    const bool isDone = due.contains(kEverything) ? RemoveAll(folder)
                        : !due.isEmpty()          ? RemoveOf(folder, due)
                                                  : true;
    if (!due.isEmpty() && isDone)
        QFile::remove(folder + kDue);
    else if (!isDone)
        std::fprintf(stderr, "tallowmere: not all data of sites could be cleared in %s\n",
                     qUtf8Printable(folder));
    // A site may have any number of names, and texts are bounded for each name alone.
    if (SizeOf(folder + kTexts) > kMostTexts) {
        std::fputs("tallowmere: the texts that sites store were cleared: they took more than "
                   "250 MB\n",
                   stderr);
        QDir(folder + kTexts).removeRecursively();
    }
}

void SiteData::Note(const QUrl& page) {
    if (!IsWebUrl(page) || page.host().isEmpty())
        return;
    const QString origin = QString::fromLatin1(page.toEncoded(
        QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::RemoveUserInfo));
    m_cleared.remove(origin);
    if (m_origins.contains(origin) || m_origins.size() >= kMostOrigins)
        return;
    m_origins.insert(origin);
    QFile file(m_folder + kOrigins);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append))
        file.write(origin.toUtf8() + '\n');
    Q_EMIT Changed();
}

void SiteData::Load() {
    m_profile.cookieStore()->loadAllCookies();
}

QStringList SiteData::Stores() const {
    QStringList stores;
    for (const QFileInfo& store : StoresIn(m_folder))
        if (const QString origin = ToQt(OriginOfFolder(FromQt(store.fileName())));
            !origin.isEmpty() && !m_cleared.contains(origin))
            stores << origin;
    return stores;
}

QStringList SiteData::Origins() const {
    QStringList origins = m_origins.values() + Stores();
    for (const QNetworkCookie& cookie : m_cookies)
        for (const auto scheme : {"https://"_L1, "http://"_L1})
            origins << scheme + ToQt(HostOf(cookie));
    origins.removeDuplicates();
    return origins;
}

QList<SiteData::Site> SiteData::Sites() const {
    std::vector<std::string> hosts;
    for (const QString& origin : Origins())
        hosts.push_back(FromQt(QUrl(origin).host()));
    const QStringList stores = Stores();
    QList<Site> sites;
    for (const std::string& host : SitesOf(std::move(hosts))) {
        Site site{ToQt(host)};
        for (const QNetworkCookie& cookie : m_cookies)
            site.cookies += IsOfSite(HostOf(cookie), host);
        site.hasDatabases = std::any_of(stores.begin(), stores.end(), [&](const QString& origin) {
            return IsOf(origin, site.host);
        });
        sites << site;
    }
    return sites;
}

void SiteData::AtNextStart(const QString& what) {
    QStringList due = ReadLines(m_folder + kDue);
    if (!due.contains(what))
        WriteLines(m_folder + kDue, due << what);
}

void SiteData::Remember() const {
    // The last line has an end, too: others follow it.
    WriteLines(m_folder + kOrigins, m_origins.values() << QString());
}

void SiteData::Clear(const QString& site) {
    for (const QString& origin : Origins())
        if (IsOf(origin, site))
            m_toClear << origin;
    const auto cookies = m_cookies;
    for (const QNetworkCookie& cookie : cookies)
        if (IsOfSite(HostOf(cookie), FromQt(site)))
            m_profile.cookieStore()->deleteCookie(cookie);
    m_origins.removeIf([&](const QString& origin) { return IsOf(origin, site); });
    Remember();
    AtNextStart(site);
    ClearNext();
}

void SiteData::ClearAll() {
    m_toClear = Origins();
    m_profile.cookieStore()->deleteAllCookies();
    m_profile.clearHttpCache();
    m_profile.clearAllVisitedLinks();
    m_origins.clear();
    Remember();
    AtNextStart(kEverything);
    ClearNext();
}

// One origin after the other, each by a page that never asks its site for anything.
void SiteData::ClearNext() {
    if (m_page)
        return;
    if (m_toClear.isEmpty()) {
        Q_EMIT Changed();
        Q_EMIT Cleared(std::exchange(m_left, {}));
        return;
    }
    const QString origin = m_toClear.takeFirst();
    m_page = new QWebEnginePage(&m_profile, this);
    const auto goOn = [this, origin, page = m_page](bool isCleared) {
        if (m_page != page)
            return;
        if (isCleared)
            m_cleared.insert(origin);
        else
            m_left << origin;
        m_page = nullptr;
        page->deleteLater();
        ClearNext();
    };
    connect(m_page, &QWebEnginePage::loadFinished, m_page,
            [page = m_page] { page->runJavaScript(QString::fromLatin1(kClear)); });
    connect(m_page, &QWebEnginePage::titleChanged, m_page, [goOn](const QString& title) {
        if (title == "cleared"_L1 || title == "left"_L1)
            goOn(title == "cleared"_L1);
    });
    QTimer::singleShot(kPatience, m_page, [goOn] { goOn(false); });
    // With an icon of its own it does not ask the site for one, which might set a cookie.
    m_page->setHtml(u"<!doctype html><title>clearing</title><link rel=icon href='data:,'>"_s,
                    QUrl(origin + u'/'));
}

} // namespace tallowmere
