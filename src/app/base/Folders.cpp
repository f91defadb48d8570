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

QString ShippedData() {
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString& candidate : {program + u"/data"_s, program + u"/../share/tallowmere"_s}) {
        if (QFileInfo::exists(candidate + u"/sites.toml"_s))
            return QDir::cleanPath(candidate);
    }
    return QStringLiteral(TALLOWMERE_SOURCE_DATA);
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
    folders.data = ToPath(ShippedData());
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
