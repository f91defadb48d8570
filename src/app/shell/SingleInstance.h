#pragma once

#include "core/text/files.h"

#include <QLocalServer>

#include <chrono>
#include <filesystem>
#include <memory>

namespace tallowmere {

/// Sees to it that a profile is used by one running program: a second start raises the first
/// window and ends. The first is found by talking to it, and holds a lock as long as it lives; what
/// stands in the file of the lock means nothing.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    explicit SingleInstance(const std::filesystem::path& programFolder);

    /// Whether this program is the first on the profile; otherwise the first has been asked to show
    /// itself, and has answered. Throws RuntimeError when another program holds the lock and does
    /// not answer for as long as `patience`.
    bool IsFirst(std::chrono::milliseconds patience = std::chrono::seconds(5));

    /// Why the profile cannot be locked, in words for the user; empty when it is. The program then
    /// runs all the same.
    const QString& Problem() const { return m_problem; }

Q_SIGNALS:
    /// Another start asks for the window.
    void Raised();

private:
    bool TakeLock();
    bool AskFirst(std::chrono::milliseconds patience);
    void Listen();
    void Answer();

    std::filesystem::path m_folder;
    QString m_name;
    QString m_problem;
    std::unique_ptr<FileLock> m_lock;
    QLocalServer m_server;
};

} // namespace tallowmere
