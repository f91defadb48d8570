#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tallowmere {

class SettingsStore;
class SettingsValues;
struct SettingKey;

/// The value of a key, none when it is absent.
using SettingFinder =
    std::function<std::optional<std::string>(std::string_view section, std::string_view key)>;

SettingFinder FinderOf(const SettingsValues& values);
SettingFinder FinderOf(const SettingsStore& store);

/// A key that the table of settings knows; `number` is 0 for one that has none, `row` null for a
/// colour and for the shortcuts of a command.
struct KnownSetting {
    std::string_view section;
    std::string key;
    const SettingKey* row;
    int number;
};

/// Visits every key of the table of settings, colours included. Of a row without a last number it
/// visits the keys that `isThere` says yes to, from the first on until it says no.
void ForEachKnownSetting(const std::function<bool(const KnownSetting&)>& isThere,
                         const std::function<void(const KnownSetting&)>& visit);

/// The text of a settings file that holds what a store holds of them.
std::string KnownSettingsText(const SettingsStore& store);

} // namespace tallowmere
