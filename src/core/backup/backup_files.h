#pragma once

#include "core/market/alert_store.h"

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// What a backup holds: the files of the user's stores under their own names, and nothing else. The
/// engine's folder, generated pages and what can be undone stay out.
namespace tallowmere {

/// Where the user's stores lie.
struct StorePlaces {
    std::filesystem::path settingsFile; ///< empty on Windows without a profile: the registry
    std::filesystem::path programFolder, tables;
};

inline constexpr std::string_view kSettingsEntry = "settings.ini";
inline constexpr std::string_view kNotesEntry = "TickNotes.txt";
inline constexpr std::string_view kRemindersEntry = "remind.txt";
inline constexpr std::string_view kAlertsEntry = kAlertsFile;
inline constexpr std::string_view kSitesEntry = "sites.toml";
inline constexpr std::string_view kSourcesEntry = "sources.toml";
inline constexpr std::string_view kMultiLinkEnding = ".mlnk";

/// Contents by name; a store that holds nothing has no file.
using BackupFiles = std::map<std::string, std::string, std::less<>>;

/// How many bytes the file of a store may hold, by its name; none for a name that belongs to no
/// store, or that leads elsewhere.
std::optional<std::uint64_t> BackupFileLimit(std::string_view name);

/// What all files of a backup may hold together, and what its archive may.
inline constexpr std::uint64_t kLargestBackup = 256 * 1024 * 1024;

/// Where the file of a store lies; the name has to have a limit.
std::filesystem::path PlaceOf(const StorePlaces& places, std::string_view name);

/// What the stores hold now. Throws RuntimeError when one cannot be read.
BackupFiles ReadStores(const StorePlaces& places);

/// What a folder holds that is, or was, a profile. Throws RuntimeError when it holds no store.
BackupFiles ReadProfileFolder(const std::filesystem::path& folder);

/// The archive of a backup. Throws RuntimeError when it cannot be made, or when `isWanted`, which
/// is asked now and then, says no.
std::string PackBackup(const BackupFiles& files, std::time_t time,
                       const std::function<bool()>& isWanted = {});

/// What a file that was made by PackBackup holds. Throws RuntimeError, in words for the user, when
/// it cannot be read, is damaged, or holds no store.
BackupFiles ReadBackup(const std::filesystem::path& file);

/// The same for its bytes.
BackupFiles UnpackBackup(std::string_view bytes);

} // namespace tallowmere
