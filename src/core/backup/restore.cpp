#include "core/backup/restore.h"

#include "core/shell/settings_store.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/zip_archive.h"

#include <system_error>
#include <vector>

namespace tallowmere {

namespace {

void RemoveFile(const std::filesystem::path& file) {
    std::error_code error;
    std::filesystem::remove(file, error);
    if (error)
        throw RuntimeError("Cannot delete " + file.string() + ": " + error.message());
}

/// Writes a file of a store, or takes it away when it is to hold nothing.
void WriteStore(const std::filesystem::path& file, const std::string& content) {
    if (content.empty())
        RemoveFile(file);
    else
        WriteWholeFile(file, content);
}

std::vector<SettingChange> Reversed(const SettingsStore& settings,
                                    const std::vector<SettingChange>& changes) {
    std::vector<SettingChange> back;
    for (const SettingChange& change : changes)
        back.push_back(
            {change.section, change.key, settings.FindSetting(change.section, change.key)});
    return {back.rbegin(), back.rend()};
}

struct OldFile {
    std::filesystem::path place;
    std::string content;
};

/// Neither all of a plan nor none of it is written.
struct HalfWritten : RuntimeError {
    using RuntimeError::RuntimeError;
};

void BringBack(SettingsStore& settings, const std::vector<OldFile>& files,
               const std::vector<SettingChange>& changes, const std::string& reason) {
    try {
        // On a full disk not even what is there already could be written again.
        for (const OldFile& file : files)
            if (ReadExistingFile(file.place) != file.content)
                WriteStore(file.place, file.content);
        if (!changes.empty())
            settings.ChangeSettings(changes);
    } catch (const RuntimeError& error) {
        throw HalfWritten(
            reason + "\n\nWhat was written before that could not be brought back: " + error.what() +
            "\n\nPlease end the program. Its next start finishes the restore.");
    }
}

/// Writes the plan; what was written is brought back when the rest cannot be.
void WriteAll(const StorePlaces& places, SettingsStore& settings, const RestorePlan& plan) {
    // A settings file is brought back byte for byte; the registry has no such thing.
    std::vector<SettingChange> back;
    std::vector<OldFile> old;
    if (places.settingsFile.empty())
        back = Reversed(settings, plan.settings);
    else if (!plan.settings.empty())
        old.push_back({places.settingsFile, ReadExistingFile(places.settingsFile)});
    try {
        if (!plan.settings.empty())
            settings.ChangeSettings(plan.settings);
        for (const auto& [name, content] : plan.files) {
            if (name == kSettingsEntry)
                continue;
            const std::filesystem::path place = PlaceOf(places, name);
            // A write may fail after the file was replaced: it is brought back, too.
            old.push_back({place, ReadExistingFile(place)});
            WriteStore(place, content);
        }
    } catch (const RuntimeError& error) {
        BringBack(settings, old, back, error.what());
        throw;
    }
}

std::vector<ArchivedFile> Packed(const RestorePlan& plan) {
    std::vector<ArchivedFile> files;
    for (const auto& [name, content] : plan.files)
        files.push_back({name, content});
    return files;
}

} // namespace

std::filesystem::path RestoreFile(const StorePlaces& places) {
    return places.programFolder / "restore.zip";
}

void Restore(const StorePlaces& places, SettingsStore& settings, const RestorePlan& plan) {
    if (plan.files.empty())
        return;
    const std::filesystem::path journal = RestoreFile(places);
    try {
        WriteWholeFile(journal, WriteZip(Packed(plan), 0));
        WriteAll(places, settings, plan);
    } catch (const HalfWritten&) {
        throw;
    } catch (const RuntimeError&) {
        RemoveFile(journal);
        throw;
    }
    RemoveFile(journal);
}

bool FinishRestore(const StorePlaces& places) {
    const std::filesystem::path journal = RestoreFile(places);
    if (!StampOf(journal))
        return false;
    try {
        SettingsStore settings(places.settingsFile);
        const std::string bytes = ReadExistingFile(journal, kLargestBackup);
        for (const ArchivedFile& file : ReadZip(bytes, BackupFileLimit, kLargestBackup)) {
            if (file.name == kSettingsEntry)
                settings.ChangeSettings(SettingsTowards(settings, file.content));
            else
                WriteStore(PlaceOf(places, file.name), file.content);
        }
        RemoveFile(journal);
    } catch (const RuntimeError& error) {
        throw RuntimeError("A restore that was interrupted cannot be finished. " +
                           std::string(error.what()) + ". The next start tries again; without " +
                           journal.string() + " it starts with what is there.");
    }
    return true;
}

} // namespace tallowmere
