#include "core/shell/settings_store.h"

#include "core/shell/settings_text.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#ifdef _WIN32
#include "core/shell/settings_store_windows.h"
#endif

namespace tallowmere {

namespace {

/// Ten portfolios of a hundred thousand tickers fit into it several times.
constexpr std::uint64_t kLargestSettings = 16 * kMegabyte;

} // namespace

/// What the file held when it was last read.
struct SettingsStore::Content {
    std::optional<FileStamp> stamp;
    SettingsValues values{""};
};

SettingsStore::SettingsStore(std::filesystem::path file)
    : m_file(std::move(file)), m_content(std::make_unique<Content>()) {}

SettingsStore::~SettingsStore() = default;

std::string SettingsStore::GetSetting(std::string_view section, std::string_view key,
                                      std::string_view fallback) const {
    return FindSetting(section, key).value_or(std::string(fallback));
}

std::optional<std::string> SettingsStore::FindSetting(std::string_view section,
                                                      std::string_view key) const {
#ifdef _WIN32
    if (m_file.empty())
        return ReadRegistrySetting(section, key);
#endif
    // Another program may have written meanwhile; asking for the stamp is far cheaper than reading.
    if (const auto stamp = StampOf(m_file); stamp != m_content->stamp) {
        m_content->stamp = stamp;
        m_content->values = SettingsValues("");
        try {
            m_content->values = SettingsValues(ReadExistingFile(m_file, kLargestSettings));
        } catch (const RuntimeError&) {
            // No keys until the file changes; SaveSetting says why it cannot be used.
        }
    }
    const std::string* value = m_content->values.Find(section, key);
    return value ? std::optional(*value) : std::nullopt;
}

void SettingsStore::SaveSetting(std::string_view section, std::string_view key,
                                std::string_view value) {
    SaveSettings(section, {{std::string(key), std::string(value)}});
}

void SettingsStore::SaveSettings(std::string_view section,
                                 const std::vector<std::pair<std::string, std::string>>& values) {
    std::vector<SettingChange> changes;
    for (const auto& [key, value] : values)
        changes.push_back({std::string(section), key, value});
    ChangeSettings(changes);
}

void SettingsStore::ChangeSettings(const std::vector<SettingChange>& changes) {
    std::vector<SettingChange> before;
    if (m_observer)
        for (const SettingChange& change : changes)
            before.push_back({change.section, change.key, FindSetting(change.section, change.key)});
    const std::vector<std::optional<std::string>> places = Write(changes);
    for (std::size_t i = 0; i < before.size(); ++i) {
        before[i].behind = places[i];
        m_observer(before[i]);
    }
}

// Gives for each change behind which key its own stood, if that was taken out.
std::vector<std::optional<std::string>>
SettingsStore::Write(const std::vector<SettingChange>& changes) {
    std::vector<std::optional<std::string>> places(changes.size());
#ifdef _WIN32
    if (m_file.empty()) {
        for (const SettingChange& change : changes)
            change.value ? WriteRegistrySetting(change.section, change.key, *change.value)
                         : RemoveRegistrySetting(change.section, change.key);
        return places;
    }
#endif
    const FileLock lock(m_file);
    const std::string text = ReadExistingFile(m_file, kLargestSettings);
    std::string changed = text;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const auto& [section, key, value, behind] = changes[i];
        if (value) {
            changed = ChangeSettingsText(changed, section, key, *value, behind);
        } else {
            places[i] = KeyBefore(changed, section, key);
            changed = RemoveSettingText(changed, section, key);
        }
    }
    if (changed == text)
        return places;
    // Once is enough: what is written now holds no damage any more.
    if (IsDamagedSettingsText(text))
        WriteWholeFile(BackupPath(m_file), text);
    WriteWholeFile(m_file, changed);
    return places;
}

} // namespace tallowmere
