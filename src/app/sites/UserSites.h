#pragma once

#include "app/sites/Tables.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace tallowmere {

/// The user's own table of sites: a file whose rows lie over those of the program's tables. It is
/// read again whenever it changes, appears or goes.
class UserSites : public QObject {
    Q_OBJECT
public:
    /// `tables` are those of the program; they are changed in place. `file` may not exist yet.
    UserSites(Tables& tables, std::filesystem::path file, QObject* parent = nullptr);

    const std::filesystem::path& File() const { return m_file; }
    /// The tables without the user's rows.
    const Tables& Shipped() const { return m_shipped; }
    /// What is wrong with the file, "<file>:<line>: <what>"; the rows concerned are left out.
    const std::vector<std::string>& Problems() const { return m_problems; }

    /// Reads the file if it is another than the one that was read last.
    void Read();

    /// Writes today's address of a row into the file, and takes it out. Comments and other rows
    /// stay. Throws RuntimeError, in words for the user, when that cannot be done.
    void Save(std::string_view key, std::string_view address);
    void Remove(std::string_view key);

Q_SIGNALS:
    /// The tables changed.
    void Changed();
    /// The file was read and something is wrong with it.
    void ProblemsFound();

private:
    void Watch();
    std::string Text() const;
    void Write(const std::function<std::string(const std::string&)>& change);
    void Report();

    Tables& m_tables;
    Tables m_shipped;
    std::filesystem::path m_file;
    std::optional<std::string> m_text; ///< what was read last
    std::vector<std::string> m_problems;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
};

} // namespace tallowmere
