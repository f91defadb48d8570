#include "app/engine/EngineProfile.h"

#include "app/base/PortalAddress.h"
#include "app/base/Prompts.h"
#include "app/engine/PagePermissions.h"
#include "app/engine/PortalScheme.h"
#include "app/engine/RequestRedirector.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

void ApplySettings(QWebEngineSettings& settings) {
    // Together these two would let a local page read any file of the user and send it out.
    settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings.setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
    settings.setAttribute(QWebEngineSettings::FullScreenSupportEnabled, false);
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

EngineProfile::EngineProfile(const QString& storageFolder, const QString& programFolder,
                             const WebAccess& access, Prompts& prompts, QObject* parent)
    : QObject(parent), m_access(access), m_prompts(prompts), m_programFolder(programFolder),
      m_engine(std::make_unique<QWebEngineProfile>(u"tallowmere"_s)) {
    MakePrivateFolder(storageFolder);
    m_engine->setPersistentStoragePath(storageFolder);
    m_engine->setCachePath(storageFolder + u"/cache"_s);
    m_engine->setHttpCacheType(QWebEngineProfile::DiskHttpCache);
    m_engine->setPersistentCookiesPolicy(QWebEngineProfile::ForcePersistentCookies);
    PagePermissions::RememberForThisRun(*m_engine);
    ApplySettings(*m_engine->settings());
    m_redirector = new RequestRedirector(access, this);
    m_engine->setUrlRequestInterceptor(m_redirector);
    m_engine->installUrlSchemeHandler(PortalAddress::Scheme().toLatin1(),
                                      new PortalScheme(access, programFolder, this));
    connect(m_engine.get(), &QWebEngineProfile::downloadRequested, this,
            &EngineProfile::AskForDownload);
}

EngineProfile::~EngineProfile() {
    qDeleteAll(findChildren<QWebEnginePage*>(Qt::FindDirectChildrenOnly));
}

void EngineProfile::LetPass(const QUrl& url) {
    m_redirector->LetPass(url);
}

void EngineProfile::AskForDownload(QWebEngineDownloadRequest* download) {
    const QPointer<QWebEngineDownloadRequest> guard(download);
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    const auto path = m_prompts.SaveFile(tr("Save As"),
                                         folder.filePath(download->suggestedFileName()), QString());
    if (!guard)
        return;
    if (!path || path->isEmpty()) {
        download->cancel();
        return;
    }
    const QFileInfo target(*path);
    download->setDownloadDirectory(target.absolutePath());
    download->setDownloadFileName(target.fileName());
    connect(download, &QWebEngineDownloadRequest::isFinishedChanged, this,
            [this, download] { Report(*download); });
    download->accept();
    Q_EMIT DownloadStatus(tr("Saving %1").arg(target.fileName()));
}

void EngineProfile::Report(const QWebEngineDownloadRequest& download) {
    const QString name = download.downloadFileName();
    if (download.state() == QWebEngineDownloadRequest::DownloadCompleted) {
        Q_EMIT DownloadStatus(tr("Saved %1").arg(name));
    } else if (download.state() == QWebEngineDownloadRequest::DownloadInterrupted) {
        Q_EMIT DownloadStatus({});
        m_prompts.Message(
            tr("%1 could not be saved: %2.").arg(name, download.interruptReasonString()),
            MessageTitle());
    }
}

} // namespace tallowmere
