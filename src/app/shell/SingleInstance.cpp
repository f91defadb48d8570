#include "app/shell/SingleInstance.h"

#include "app/base/QtText.h"
#include "core/text/runtime_error.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// Its extension is that of every lock.
constexpr std::string_view kLockFile = "running.lock";
constexpr auto kPause = std::chrono::milliseconds(20);
constexpr auto kConnecting = std::chrono::milliseconds(500);
/// What the first program answers; whatever else listens under the name is not one of ours.
constexpr char kAnswer[] = "here\n";

// The socket's name is short whatever the folder's path is: local socket paths are limited.
QString SocketName(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::path canonical = std::filesystem::weakly_canonical(folder, error);
    const QByteArray path = PathToQt(error ? folder : canonical).toUtf8();
    return u"tallowmere-"_s +
           QString::fromLatin1(
               QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(16));
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& programFolder)
    : m_folder(programFolder), m_name(SocketName(programFolder)) {
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::Answer);
}

void SingleInstance::Answer() {
    while (QLocalSocket* caller = m_server.nextPendingConnection()) {
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        caller->write(kAnswer);
        caller->flush();
    }
    Q_EMIT Raised();
}

bool SingleInstance::IsFirst(std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    do {
        if (TakeLock()) {
            Listen();
            return true;
        }
        // It may be starting, and listen only in a moment; or be about to end.
        if (AskFirst(std::chrono::milliseconds(deadline.remainingTime())))
            return false;
        QThread::msleep(kPause.count());
    } while (!deadline.hasExpired());
    throw RuntimeError("Tallowmere is running already on " + m_folder.string() +
                       " but does not answer. End it, then start again.");
}

// A lock that cannot be made keeps nobody out: better a program than none. Who answers is the first
// even so.
bool SingleInstance::TakeLock() {
    try {
        m_lock = FileLock::Try(m_folder / std::filesystem::path(kLockFile).stem());
        return m_lock != nullptr;
    } catch (const RuntimeError& error) {
        m_problem = QString::fromUtf8(error.what()) +
                    u"\n\nTallowmere runs all the same, but cannot tell whether it is running on "
                    "these files already."_s;
        return !AskFirst(kConnecting);
    }
}

bool SingleInstance::AskFirst(std::chrono::milliseconds patience) {
    QLocalSocket first;
    first.connectToServer(m_name);
    if (!first.waitForConnected(static_cast<int>(std::min(patience, kConnecting).count())))
        return false;
    const QDeadlineTimer deadline(patience);
    while (!first.canReadLine() && !deadline.hasExpired())
        if (!first.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            break;
    return first.readLine() == kAnswer;
}

// Nobody answered: a socket that is still there was left behind by a crash.
void SingleInstance::Listen() {
    QLocalServer::removeServer(m_name);
    if (!m_server.listen(m_name))
        qWarning("tallowmere: a further start cannot raise this window: %s",
                 qUtf8Printable(m_server.errorString()));
}

} // namespace tallowmere
