#pragma once

#include <QLocalServer>
#include <QLockFile>

#include <filesystem>

namespace tallowmere {

/// Sees to it that a profile is used by one running program: a second start raises the first
/// window and ends.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    explicit SingleInstance(const std::filesystem::path& programFolder);

    /// Whether this program is the first on the profile; otherwise the first was asked to show
    /// itself.
    bool IsFirst();

Q_SIGNALS:
    /// Another start asks for the window.
    void Raised();

private:
    QString m_name;
    QLockFile m_lock;
    QLocalServer m_server;
};

} // namespace tallowmere
