#include "app/base/Folders.h"

#include "app/base/QtText.h"
#include "core/text/runtime_error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// Beside the program, as in a build that runs in place, or where an installed copy has it.
std::filesystem::path ShippedData() {
    const QString program = QCoreApplication::applicationDirPath();
    QStringList looked;
    for (const QString& candidate : {u"data"_s, QStringLiteral(TALLOWMERE_DATA_FROM_PROGRAM)}) {
        const QString folder = QDir::cleanPath(program + u'/' + candidate);
        if (QFileInfo::exists(folder + u"/sites.toml"_s))
            return ToPath(folder);
        looked << folder;
    }
    throw RuntimeError(
        "The tables that belong to the program are missing. They were looked for in " +
        FromQt(looked.join(u" and "_s)) + ". Please install the program again.");
}

void MakePrivate(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        throw RuntimeError("The folder " + folder.string() + " cannot be made: " + error.message());
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
}

} // namespace

Folders Folders::For(const QString& profile) {
    Folders folders;
    folders.data = ShippedData();
    if (!profile.isEmpty()) {
        folders.programFolder = ToPath(QDir(profile).absolutePath());
        folders.settingsFile = folders.programFolder / "settings.ini";
        folders.engine = folders.programFolder / "engine";
    } else {
        const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                             u"/tallowmere"_s;
        folders.programFolder = ToPath(data);
        folders.engine = folders.programFolder / "engine";
#ifndef _WIN32
        const QString configuration =
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
            u"/tallowmere"_s;
        folders.settingsFile = ToPath(configuration) / "settings.ini";
        MakePrivate(folders.settingsFile.parent_path());
#endif
    }
    folders.tables =
        folders.settingsFile.empty() ? folders.programFolder : folders.settingsFile.parent_path();
    MakePrivate(folders.programFolder);
    return folders;
}

} // namespace tallowmere
