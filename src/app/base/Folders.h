#pragma once

#include "core/backup/backup_files.h"

#include <QString>

#include <filesystem>

namespace tallowmere {

/// Where things lie on this machine.
struct Folders {
    std::filesystem::path settingsFile;  ///< empty on Windows without a profile: the registry
    std::filesystem::path programFolder; ///< notes, reminders and generated pages
    std::filesystem::path tables;        ///< tables of the user's own, over those that ship
    std::filesystem::path engine;        ///< what the web engine keeps: cookies, cache
    std::filesystem::path data;          ///< what ships with the program

    /// The user's own configuration and data folders, or one folder for everything when
    /// `profile` names one. The folders are made, for their owner alone. Throws
    /// RuntimeError when they cannot be, or when what ships is not there.
    static Folders For(const QString& profile);

    /// Where of these the user's stores lie.
    StorePlaces Stores() const { return {settingsFile, programFolder, tables}; }
};

} // namespace tallowmere
