#include "app/engine/Download.h"

#include "app/base/WebAccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QWebEngineDownloadRequest>

namespace tallowmere {

DownloadProblem Download::ProblemOf(const QWebEngineDownloadRequest& request) {
    using Request = QWebEngineDownloadRequest;
    switch (request.interruptReason()) {
    case Request::FileNoSpace:
        return DownloadProblem::DiskFull;
    case Request::FileAccessDenied:
        return DownloadProblem::NotAllowed;
    case Request::FileNameTooLong:
        return DownloadProblem::NameTooLong;
    case Request::FileTooLarge:
        return DownloadProblem::FileTooLarge;
    case Request::FileFailed:
    case Request::FileTransientError:
        return DownloadProblem::FileFailed;
    case Request::FileVirusInfected:
    case Request::FileBlocked:
    case Request::FileSecurityCheckFailed:
    case Request::FileHashMismatch:
    case Request::ServerCertProblem:
        return DownloadProblem::Blocked;
    case Request::FileTooShort:
    case Request::NetworkFailed:
    case Request::NetworkDisconnected:
        return DownloadProblem::ConnectionLost;
    case Request::NetworkTimeout:
    case Request::NetworkServerDown:
    case Request::ServerUnreachable:
        return DownloadProblem::NoAnswer;
    case Request::ServerUnauthorized:
    case Request::ServerForbidden:
    case Request::ServerBadContent:
        return DownloadProblem::ServerRefused;
    case Request::ServerFailed:
    case Request::NetworkInvalidRequest:
        return DownloadProblem::ServerFailed;
    default:
        return DownloadProblem::Unknown;
    }
}

namespace {

// What was saved is nothing to run, whatever it is called.
void TakeAwayRightToRun(const QString& path) {
    QFile::setPermissions(path, QFile::permissions(path) & ~(QFile::ExeOwner | QFile::ExeUser |
                                                             QFile::ExeGroup | QFile::ExeOther));
}

} // namespace

Download::Download(const QString& path, bool isRepeatable, QObject* parent)
    : QObject(parent), m_path(path), m_isRepeatable(isRepeatable) {
    m_clock.start();
}

void Download::Follow(QWebEngineDownloadRequest& request) {
    if (m_request)
        m_request->disconnect(this);
    m_request = &request;
    m_id = request.id();
    m_url = request.url();
    const QFileInfo target(m_path);
    request.setDownloadDirectory(target.absolutePath());
    request.setDownloadFileName(target.fileName());
    connect(&request, &QWebEngineDownloadRequest::stateChanged, this, &Download::OnState);
    const auto note = [this] {
        m_received = m_request->receivedBytes();
        m_total = m_request->totalBytes();
        if (IsRunning())
            m_speed.Note(m_clock.elapsed(), m_received);
        Q_EMIT Changed();
    };
    connect(&request, &QWebEngineDownloadRequest::receivedBytesChanged, this, note);
    connect(&request, &QWebEngineDownloadRequest::totalBytesChanged, this, note);
    // Of a folder that it cannot write the engine says nothing at all.
    const QString folder = target.absolutePath();
    if (QDir().mkpath(folder) && QFileInfo(folder).isWritable()) {
        request.accept();
        return;
    }
    request.disconnect(this);
    request.cancel();
    m_problem = DownloadProblem::NotAllowed;
    End(DownloadState::Failed);
}

bool Download::IsSameAs(const QWebEngineDownloadRequest& request) const {
    return m_request && request.id() == m_id;
}

QString Download::Name() const {
    return QFileInfo(m_path).fileName();
}

DownloadFacts Download::Facts() const {
    DownloadFacts facts{m_state, m_received, m_total, {}, m_problem};
    if (IsRunning())
        facts.bytesPerSecond = m_speed.PerSecond(m_clock.elapsed());
    facts.isGone = m_state == DownloadState::Saved && !QFileInfo::exists(m_path);
    return facts;
}

void Download::OnState() {
    m_received = m_request->receivedBytes();
    switch (m_request->state()) {
    case QWebEngineDownloadRequest::DownloadInProgress:
        m_state = DownloadState::Running;
        m_problem = DownloadProblem::None;
        Q_EMIT Changed();
        break;
    case QWebEngineDownloadRequest::DownloadCompleted:
        TakeAwayRightToRun(m_path);
        // The engine takes what a broken connection left for the whole file.
        m_total = m_request->totalBytes();
        if (m_received < m_total)
            m_problem = DownloadProblem::ConnectionLost;
        End(m_problem == DownloadProblem::None ? DownloadState::Saved : DownloadState::Failed);
        break;
    case QWebEngineDownloadRequest::DownloadCancelled:
        End(DownloadState::Cancelled);
        break;
    case QWebEngineDownloadRequest::DownloadInterrupted:
        m_problem = ProblemOf(*m_request);
        // The engine has no word for less than was announced.
        if (m_problem == DownloadProblem::Unknown && m_request->receivedBytes() < m_total)
            m_problem = DownloadProblem::ConnectionLost;
        End(DownloadState::Failed);
        break;
    default:
        break;
    }
}

void Download::End(DownloadState state) {
    m_state = state;
    m_speed.Forget();
    Q_EMIT Changed();
    Q_EMIT Ended();
}

void Download::Cancel() {
    if (!IsRunning())
        return;
    if (m_request)
        m_request->cancel();
    // A request that the engine has not made yet ends without a word from it.
    if (IsRunning())
        End(DownloadState::Cancelled);
}

bool Download::CanTryAgain() const {
    const bool hasEnded = m_state == DownloadState::Failed || m_state == DownloadState::Cancelled;
    const bool canResume =
        m_state == DownloadState::Failed && m_request && !m_request->isFinished();
    return hasEnded && (canResume || (m_isRepeatable && IsWebUrl(m_url)));
}

bool Download::Resume() {
    if (m_state != DownloadState::Failed || !m_request || m_request->isFinished())
        return false;
    BeginAgain();
    m_request->resume();
    return true;
}

void Download::BeginAgain() {
    m_state = DownloadState::Running;
    m_problem = DownloadProblem::None;
    m_speed.Forget();
    Q_EMIT Changed();
}

void Download::Drop() {
    if (!m_request)
        return;
    m_request->disconnect(this);
    if (!m_request->isFinished())
        m_request->cancel();
}

} // namespace tallowmere
