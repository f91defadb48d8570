#pragma once

#include "core/pages/download_text.h"

#include <QHash>
#include <QList>
#include <QObject>

class QWebEngineDownloadRequest;
class QWebEnginePage;
class QWebEngineProfile;

namespace tallowmere {

class Download;
class Prompts;

/// The files that sites gave in this run: asks where each is to be saved, and keeps the list of
/// them with what becomes of them.
class DownloadList : public QObject {
    Q_OBJECT
public:
    /// The list ends before `engine`.
    DownloadList(QWebEngineProfile& engine, Prompts& prompts);
    ~DownloadList() override;

    /// All of them, the newest first. They belong to the list.
    const QList<Download*>& All() const { return m_all; }
    int RunningCount() const;

    /// Saves a file anew that was cancelled or has failed, from where it broke off if possible.
    void TryAgain(Download& download);
    /// Takes one that is not running out of the list; a saved file stays where it is.
    void Remove(Download& download);
    /// Cancels what runs.
    void CancelAll();

Q_SIGNALS:
    void Added(Download* download);
    void Changed(Download* download);
    void Removed(Download* download);
    /// What is told in passing: "Saving <file>", "Saved <file>", "<file> was not saved: ...".
    void Status(const QString& text);
    /// One is saved or has failed; not when the user cancelled it.
    void Ended(Download* download);

private:
    void OnRequested(QWebEngineDownloadRequest* request);
    void Ask(QWebEngineDownloadRequest& request);
    void FollowPage(QWebEngineDownloadRequest& request);
    void Add(const QString& path, QWebEngineDownloadRequest& request);
    void TellUnsaved(const QString& name, DownloadProblem problem);
    void OnEnded(Download& download);
    void StopAsking(const Download& download);

    QWebEngineProfile& m_engine;
    Prompts& m_prompts;
    QList<Download*> m_all;
    QHash<QWebEnginePage*, Download*> m_again; ///< the pages that ask for a file anew
};

} // namespace tallowmere
