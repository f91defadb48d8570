#pragma once

#include "core/backup/backup_files.h"
#include "core/shell/settings_store.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

/// What a backup would change of what the user has, and what has to be written for it.
namespace tallowmere {

/// What a user takes from a backup or leaves, in the order in which it is shown.
enum class BackupPart {
    Portfolios,
    Notes,
    Reminders,
    Alerts,
    Links,
    MultiLinks,
    Colors,
    Settings,
    Sites,
    Sources
};

std::string_view NameOf(BackupPart part);

/// The part to which a value of the settings belongs; none for a key that the program does not
/// know, and for those that are about this machine or this run: where the window stands, which
/// portfolio is shown, what was told once.
std::optional<BackupPart> PartOfSetting(std::string_view section, std::string_view key);

/// What becomes of one part, by the names of what is in it.
struct PartChanges {
    BackupPart part;
    bool isInBackup; ///< whether the backup has anything of it
    std::vector<std::string> fresh, changed, gone;
    /// Why it is better looked at first; empty mostly.
    std::string warning;
    bool IsAny() const { return !fresh.empty() || !changed.empty() || !gone.empty(); }
    friend bool operator==(const PartChanges&, const PartChanges&) = default;
};

/// What each part would become, in their order.
std::vector<PartChanges> CompareStores(const BackupFiles& now, const BackupFiles& backup);

/// What a restore writes.
struct RestorePlan {
    /// The whole new content of every file that changes; an empty one goes.
    BackupFiles files;
    /// What changes in the settings, which is in their file too.
    std::vector<SettingChange> settings;
};

/// What has to be written so that these parts are as in the backup and all others as now. Values
/// that cannot be read as their key asks stay out.
RestorePlan PlanRestore(const BackupFiles& now, const BackupFiles& backup,
                        const std::set<BackupPart>& parts);

/// What changes in a store of settings that is to hold what a settings file holds of all parts.
std::vector<SettingChange> SettingsTowards(const SettingsStore& store, std::string_view text);

} // namespace tallowmere
