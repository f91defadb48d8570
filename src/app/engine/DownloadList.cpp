#include "app/engine/DownloadList.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/Download.h"
#include "app/engine/PanePage.h"
#include "core/pages/download_name.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>

#include <algorithm>

namespace tallowmere {

DownloadList::DownloadList(QWebEngineProfile& engine, Prompts& prompts)
    : m_engine(engine), m_prompts(prompts) {
    connect(&engine, &QWebEngineProfile::downloadRequested, this, &DownloadList::OnRequested);
}

// The engine tells of what ends with it, but nobody is there to hear it.
DownloadList::~DownloadList() {
    for (Download* download : m_all)
        download->disconnect(this);
}

int DownloadList::RunningCount() const {
    return static_cast<int>(
        std::ranges::count_if(m_all, [](const Download* one) { return one->IsRunning(); }));
}

void DownloadList::OnRequested(QWebEngineDownloadRequest* request) {
    if (Download* again = m_again.take(request->page())) {
        request->page()->deleteLater();
        if (again->IsRunning())
            again->Follow(*request);
        else
            request->cancel(); // the user thought better of it
        return;
    }
    if (request->isSavePageDownload()) {
        FollowPage(*request);
        return;
    }
    // A file that breaks off is tried again by the engine itself, as another request.
    for (Download* download : std::as_const(m_all)) {
        if (download->IsRunning() && download->IsSameAs(*request)) {
            download->Follow(*request);
            return;
        }
    }
    auto* page = qobject_cast<PanePage*>(request->page());
    if (page && !page->MayAskForDownload()) {
        request->cancel();
        Q_EMIT Status(tr("Not saved: the page starts downloads by itself"));
        return;
    }
    Ask(*request);
}

// Nobody but the user saves a whole page, and has said where. It comes from the pane, not from a
// site, and is no row of the list.
void DownloadList::FollowPage(QWebEngineDownloadRequest& request) {
    connect(&request, &QWebEngineDownloadRequest::isFinishedChanged, this, [this, &request] {
        const QString name = request.downloadFileName();
        if (request.state() == QWebEngineDownloadRequest::DownloadCompleted)
            Q_EMIT Status(tr("Saved %1").arg(name));
        else // not in the engine's words: it may have none while it ends, and break down over it
            TellUnsaved(name, Download::ProblemOf(request));
    });
    request.accept();
    Q_EMIT Status(tr("Saving %1").arg(request.downloadFileName()));
}

void DownloadList::Ask(QWebEngineDownloadRequest& request) {
    const QPointer<QWebEngineDownloadRequest> guard(&request);
    // The site proposes a name, never a folder.
    const QString name = ToQt(PlainDownloadName(FromQt(request.suggestedFileName())));
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    const auto path = m_prompts.SaveFile(tr("Save As"), folder.filePath(name), QString());
    if (!guard)
        return;
    const QFileInfo target(path.value_or(QString()));
    const bool isWanted =
        path && !path->isEmpty() &&
        (!RunsWhenOpened(FromQt(target.fileName())) ||
         m_prompts.Ask(tr("%1 is a program: it may run when it is opened, and do "
                          "whatever you can do. It comes from %2. Save it?")
                           .arg(target.fileName(), WebAccess::AsBuilt(request.url()).host()),
                       MessageTitle()));
    if (!guard)
        return;
    if (isWanted)
        Add(target.absoluteFilePath(), request);
    else
        request.cancel();
}

void DownloadList::Add(const QString& path, QWebEngineDownloadRequest& request) {
    // A form may not be sent a second time.
    const auto* page = qobject_cast<PanePage*>(request.page());
    auto* download = new Download(path, !page || !page->IsSendingForm(), this);
    m_all.prepend(download);
    Q_EMIT Added(download);
    connect(download, &Download::Changed, this, [this, download] { Q_EMIT Changed(download); });
    connect(download, &Download::Ended, this, [this, download] { OnEnded(*download); });
    Q_EMIT Status(tr("Saving %1").arg(download->Name()));
    download->Follow(request);
}

void DownloadList::OnEnded(Download& download) {
    const DownloadFacts facts = download.Facts();
    if (facts.state == DownloadState::Cancelled)
        return;
    if (facts.state == DownloadState::Saved)
        Q_EMIT Status(tr("Saved %1").arg(download.Name()));
    else
        TellUnsaved(download.Name(), facts.problem);
    Q_EMIT Ended(&download);
}

void DownloadList::TellUnsaved(const QString& name, DownloadProblem problem) {
    Q_EMIT Status(
        tr("%1 was not saved: %2").arg(name, ToQt(std::string(DownloadProblemText(problem)))));
}

void DownloadList::TryAgain(Download& download) {
    if (!download.CanTryAgain() || download.Resume())
        return;
    download.Drop();
    StopAsking(download);
    download.BeginAgain();
    // A page of its own tells this file from all others that arrive.
    auto* page = new QWebEnginePage(&m_engine, this);
    m_again.insert(page, &download);
    page->download(download.Url());
}

void DownloadList::StopAsking(const Download& download) {
    for (auto again = m_again.begin(); again != m_again.end();) {
        if (again.value() != &download) {
            ++again;
            continue;
        }
        again.key()->deleteLater();
        again = m_again.erase(again);
    }
}

void DownloadList::Remove(Download& download) {
    if (download.IsRunning())
        return;
    download.Drop();
    StopAsking(download);
    m_all.removeOne(&download);
    Q_EMIT Removed(&download);
    download.deleteLater();
}

void DownloadList::CancelAll() {
    for (Download* download : QList<Download*>(m_all)) {
        download->Cancel();
        download->Drop();
    }
}

} // namespace tallowmere
