#include "core/backup/known_settings.h"

#include "core/shell/command_keys.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"
#include "core/shell/settings_text.h"
#include "core/tools/color_areas.h"

namespace tallowmere {

SettingFinder FinderOf(const SettingsValues& values) {
    return [&values](std::string_view section, std::string_view key) {
        const std::string* value = values.Find(section, key);
        return value ? std::optional(*value) : std::nullopt;
    };
}

SettingFinder FinderOf(const SettingsStore& store) {
    return [&store](std::string_view section, std::string_view key) {
        return store.FindSetting(section, key);
    };
}

void ForEachKnownSetting(const std::function<bool(const KnownSetting&)>& isThere,
                         const std::function<void(const KnownSetting&)>& visit) {
    for (const SettingKey& row : kSettingKeys) {
        if (row.first == 0) {
            visit({row.section, std::string(row.prefix), &row, 0});
            continue;
        }
        for (int number = row.first; number <= row.last; ++number) {
            const KnownSetting setting{
                row.section, std::string(row.prefix) + std::to_string(number), &row, number};
            if (row.last == kNoLastNumber && !isThere(setting))
                break;
            visit(setting);
        }
    }
    for (const CommandRow& row : Commands())
        if (TakesShortcut(row))
            visit({kShortcutsSection, std::string(row.name), nullptr, 0});
    for (const ColorArea& area : kColorAreas) {
        if (area.hasText)
            visit({kColorsSection, TextColorKey(area.code), nullptr, 0});
        visit({kColorsSection, BackgroundColorKey(area.code), nullptr, 0});
    }
}

std::string KnownSettingsText(const SettingsStore& store) {
    std::string text;
    ForEachKnownSetting(
        [&](const KnownSetting& setting) {
            return store.FindSetting(setting.section, setting.key).has_value();
        },
        [&](const KnownSetting& setting) {
            if (const auto value = store.FindSetting(setting.section, setting.key))
                text = ChangeSettingsText(text, setting.section, setting.key, *value);
        });
    return text;
}

} // namespace tallowmere
