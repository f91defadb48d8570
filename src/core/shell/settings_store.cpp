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
#ifdef _WIN32
    if (m_file.empty())
        return ReadRegistrySetting(section, key).value_or(std::string(fallback));
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
    return value ? *value : std::string(fallback);
}

void SettingsStore::SaveSetting(std::string_view section, std::string_view key,
                                std::string_view value) {
    SaveSettings(section, {{std::string(key), std::string(value)}});
}

void SettingsStore::SaveSettings(std::string_view section,
                                 const std::vector<std::pair<std::string, std::string>>& values) {
#ifdef _WIN32
    if (m_file.empty()) {
        for (const auto& [key, value] : values)
            WriteRegistrySetting(section, key, value);
        return;
    }
#endif
    const FileLock lock(m_file);
    const std::string text = ReadExistingFile(m_file, kLargestSettings);
    std::string changed = text;
    for (const auto& [key, value] : values)
        changed = ChangeSettingsText(changed, section, key, value);
    if (changed == text)
        return;
    // Once is enough: what is written now holds no damage any more.
    if (IsDamagedSettingsText(text))
        WriteWholeFile(BackupPath(m_file), text);
    WriteWholeFile(m_file, changed);
}

} // namespace tallowmere
