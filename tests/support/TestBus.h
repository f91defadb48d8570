#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QtDBus/QDBusConnection>

namespace tallowmere {

/// A message bus of the test's own.
class TestBus {
public:
    TestBus() {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address")});
        if (m_daemon.waitForStarted() && m_daemon.waitForReadyRead())
            m_address = QString::fromLocal8Bit(m_daemon.readLine()).trimmed();
    }
    ~TestBus() {
        for (const QString& name : m_names)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    TestBus(const TestBus&) = delete;
    TestBus& operator=(const TestBus&) = delete;

    /// Whether this machine has what makes one.
    static bool IsThere() {
        return !QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty();
    }

    /// A connection of that name.
    QDBusConnection Connect(const QString& name) {
        m_names << name;
        return QDBusConnection::connectToBus(m_address, name);
    }

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

} // namespace tallowmere
