#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallowmere {

/// What becomes of one value: none takes its key out of the store.
struct SettingChange {
    std::string section, key;
    std::optional<std::string> value;
    /// The key of its section behind which the key is to go, when it is not there; empty: to the
    /// front. Without one it goes to the end.
    std::optional<std::string> behind = std::nullopt;
};

/// The per-user store of named string values: section, key, value. Everything that the user
/// prefers lies here. On Windows it is a branch of the registry, elsewhere an INI file.
class SettingsStore {
public:
    /// `file` is the INI file; it and its folder are made, for their owner alone, by the first
    /// write. On Windows an empty path means the registry.
    explicit SettingsStore(std::filesystem::path file);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// The stored text, or `fallback` when the key is absent. Never fails: a file that cannot be
    /// read holds no keys.
    std::string GetSetting(std::string_view section, std::string_view key,
                           std::string_view fallback) const;

    /// The stored text, none when the key is absent. Never fails.
    std::optional<std::string> FindSetting(std::string_view section, std::string_view key) const;

    /// Creates or overwrites one value; it is on disk when the call returns, and what another
    /// program wrote to other keys meanwhile stays. Throws RuntimeError when it cannot be written.
    void SaveSetting(std::string_view section, std::string_view key, std::string_view value);

    /// The same for several values of a section: all of them are written at once, or none.
    void SaveSettings(std::string_view section,
                      const std::vector<std::pair<std::string, std::string>>& values);

    /// The same for values of any sections, and for keys that are to go.
    void ChangeSettings(const std::vector<SettingChange>& changes);

    /// Is told of each value that was written, in order, with what its key held before, and, of a
    /// key that was taken out, where it stood then.
    using Observer = std::function<void(const SettingChange& before)>;
    void Observe(Observer observer) { m_observer = std::move(observer); }

private:
    std::vector<std::optional<std::string>> Write(const std::vector<SettingChange>& changes);

    struct Content;
    std::filesystem::path m_file;
    std::unique_ptr<Content> m_content;
    Observer m_observer;
};

} // namespace tallowmere
