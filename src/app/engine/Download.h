#pragma once

#include "core/pages/download_text.h"
#include "core/pages/transfer_speed.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QUrl>

class QWebEngineDownloadRequest;

namespace tallowmere {

/// A file of a site that is saved, or was: how far it is, and what can be done about it.
class Download : public QObject {
    Q_OBJECT
public:
    /// `path` is where the user wants it. `isRepeatable` says whether asking for the same address
    /// once more gives the same file.
    Download(const QString& path, bool isRepeatable, QObject* parent);

    /// Why the engine broke a request off.
    static DownloadProblem ProblemOf(const QWebEngineDownloadRequest& request);

    /// What the engine does is this file from now on; it begins to save it.
    void Follow(QWebEngineDownloadRequest& request);

    const QString& Path() const { return m_path; }
    QString Name() const;
    /// Where the engine found it.
    const QUrl& Url() const { return m_url; }
    DownloadFacts Facts() const;
    bool IsRunning() const { return m_state == DownloadState::Running; }
    /// Whether `request` is this file, of which the engine asks again because it broke off.
    bool IsSameAs(const QWebEngineDownloadRequest& request) const;

    /// Ends it; what is there of it goes.
    void Cancel();
    bool CanTryAgain() const;
    /// Goes on where it broke off; false when the engine has to ask anew.
    bool Resume();
    /// It is asked for anew and awaits `Follow`.
    void BeginAgain();
    /// What is left of it by the engine goes; the saved file stays.
    void Drop();

Q_SIGNALS:
    void Changed();
    /// It is saved, cancelled or has failed.
    void Ended();

private:
    void OnState();
    void End(DownloadState state);

    QString m_path;
    bool m_isRepeatable;
    QPointer<QWebEngineDownloadRequest> m_request;
    quint32 m_id = 0; ///< of the engine
    QUrl m_url;
    DownloadState m_state = DownloadState::Running;
    DownloadProblem m_problem = DownloadProblem::None;
    std::int64_t m_received = 0;
    std::int64_t m_total = -1;
    TransferSpeed m_speed;
    QElapsedTimer m_clock;
};

} // namespace tallowmere
