#include "core/backup/backup_files.h"

#include "core/backup/known_settings.h"
#include "core/shell/settings_store.h"
#include "core/text/files.h"
#include "core/text/folder_path.h"
#include "core/text/runtime_error.h"
#include "core/text/zip_archive.h"

#include <algorithm>
#include <vector>

namespace tallowmere {

namespace {

struct Store {
    std::string_view name;
    std::uint64_t limit;
    bool isTable; ///< lies beside the settings
};

// The limits are those with which the stores read their files.
// clang-format off
constexpr Store kStores[] = {
    {kSettingsEntry,  16 * kMegabyte, true},
    {kNotesEntry,     64 * kMegabyte, false},
    {kRemindersEntry, 64 * kMegabyte, false},
    {kAlertsEntry,    kLargestAlertsFile, false},
    {kSitesEntry,     16 * kMegabyte, true},
    {kSourcesEntry,   16 * kMegabyte, true},
};
// clang-format on
constexpr std::uint64_t kLargestMultiLink = 16 * kMegabyte;
constexpr std::size_t kLongestName = 200;

bool IsMultiLink(std::string_view name) {
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
    };
    return name.size() > kMultiLinkEnding.size() && name.size() <= kLongestName &&
           name.ends_with(kMultiLinkEnding) && std::none_of(name.begin(), name.end(), isControl) &&
           !PathInFolder("folder", name).empty() && !name.starts_with('\\');
}

std::vector<std::string> MultiLinksIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::u8string name = entry->path().filename().u8string();
        std::error_code unknown;
        if (IsMultiLink({reinterpret_cast<const char*>(name.data()), name.size()}) &&
            entry->is_regular_file(unknown))
            names.emplace_back(name.begin(), name.end());
    }
    if (error)
        throw RuntimeError("Cannot read the folder " + folder.string() + ": " + error.message());
    return names;
}

[[noreturn]] void NothingIn(const std::filesystem::path& place) {
    throw RuntimeError(place.string() + " holds nothing that Tallowmere has stored.");
}

} // namespace

std::optional<std::uint64_t> BackupFileLimit(std::string_view name) {
    for (const Store& store : kStores)
        if (store.name == name)
            return store.limit;
    return IsMultiLink(name) ? std::optional(kLargestMultiLink) : std::nullopt;
}

std::filesystem::path PlaceOf(const StorePlaces& places, std::string_view name) {
    if (name == kSettingsEntry)
        return places.settingsFile;
    const Store* store = std::find_if(std::begin(kStores), std::end(kStores),
                                      [&](const Store& row) { return row.name == name; });
    const bool isTable = store != std::end(kStores) && store->isTable;
    return PathInFolder(isTable ? places.tables : places.programFolder, name);
}

BackupFiles ReadStores(const StorePlaces& places) {
    std::vector<std::string> names = MultiLinksIn(places.programFolder);
    for (const Store& store : kStores)
        names.emplace_back(store.name);
    BackupFiles files;
    for (const std::string& name : names) {
        std::string content = name == kSettingsEntry && places.settingsFile.empty()
                                  ? KnownSettingsText(SettingsStore(std::filesystem::path()))
                                  : ReadExistingFile(PlaceOf(places, name), *BackupFileLimit(name));
        if (!content.empty())
            files.emplace(name, std::move(content));
    }
    return files;
}

BackupFiles ReadProfileFolder(const std::filesystem::path& folder) {
    BackupFiles files = ReadStores({folder / kSettingsEntry, folder, folder});
    if (files.empty())
        NothingIn(folder);
    return files;
}

std::string PackBackup(const BackupFiles& files, std::time_t time,
                       const std::function<bool()>& isWanted) {
    std::vector<ArchivedFile> packed;
    for (const auto& [name, content] : files)
        packed.push_back({name, content});
    return WriteZip(packed, time, isWanted);
}

BackupFiles UnpackBackup(std::string_view bytes) {
    BackupFiles files;
    for (ArchivedFile& file : ReadZip(bytes, BackupFileLimit, kLargestBackup))
        if (!file.content.empty())
            files.emplace(std::move(file.name), std::move(file.content));
    return files;
}

BackupFiles ReadBackup(const std::filesystem::path& file) {
    const std::string bytes = ReadExistingFile(file, kLargestBackup);
    BackupFiles files;
    try {
        files = UnpackBackup(bytes);
    } catch (const RuntimeError& error) {
        throw RuntimeError(file.string() + " is no backup that can be read. " + error.what() + ".");
    }
    if (files.empty())
        NothingIn(file);
    return files;
}

} // namespace tallowmere
