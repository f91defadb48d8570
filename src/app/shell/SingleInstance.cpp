#include "app/shell/SingleInstance.h"

#include "app/base/QtText.h"

#include <QCryptographicHash>
#include <QLocalSocket>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnswerMilliseconds = 2000;

// The socket's name is short whatever the folder's path is: local socket paths are limited.
QString SocketName(const std::filesystem::path& folder) {
    const QByteArray path = PathToQt(std::filesystem::weakly_canonical(folder)).toUtf8();
    return u"tallowmere-"_s +
           QString::fromLatin1(
               QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(16));
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& programFolder)
    : m_name(SocketName(programFolder)), m_lock(PathToQt(programFolder / "running.lock")) {
    m_lock.setStaleLockTime(0);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* caller = m_server.nextPendingConnection())
            connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        Q_EMIT Raised();
    });
}

bool SingleInstance::IsFirst() {
    if (m_lock.tryLock(0)) {
        // The lock is ours: a socket that is still there was left behind by a crash.
        QLocalServer::removeServer(m_name);
        m_server.listen(m_name);
        return true;
    }
    if (m_lock.error() != QLockFile::LockFailedError)
        return true; // the folder cannot be locked; better a program than none
    QLocalSocket first;
    first.connectToServer(m_name);
    first.waitForConnected(kAnswerMilliseconds);
    return false;
}

} // namespace tallowmere
