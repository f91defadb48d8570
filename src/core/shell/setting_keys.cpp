#include "core/shell/setting_keys.h"

#include "core/shell/command_keys.h"
#include "core/shell/conversion.h"
#include "core/shell/settings_store.h"
#include "core/text/bytes.h"
#include "core/text/runtime_error.h"
#include "core/tools/color_areas.h"

#include <charconv>

namespace tallowmere {

namespace {

constexpr int kNotNumbered = 0;
constexpr int kPortfolios = 10;

/// The number of a key of the row, none when the key is not of that row.
std::optional<int> NumberIn(const SettingKey& row, std::string_view key) {
    if (!key.starts_with(row.prefix))
        return std::nullopt;
    key.remove_prefix(row.prefix.size());
    if (row.first == 0)
        return key.empty() ? std::optional(kNotNumbered) : std::nullopt;
    int number = 0;
    const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), number);
    const bool valid = error == std::errc{} && end == key.data() + key.size() &&
                       !key.starts_with('0') && number >= row.first && number <= row.last;
    return valid ? std::optional(number) : std::nullopt;
}

/// The area whose text or background colour the key is; `background` says which.
const ColorArea* AreaOfKey(std::string_view key, bool& background) {
    if (key.empty() || (key[0] != 'f' && key[0] != 'b'))
        return nullptr;
    background = key[0] == 'b';
    const ColorArea* area = FindColorArea(key.substr(1));
    return area != nullptr && (background || area->hasText) ? area : nullptr;
}

} // namespace

const SettingKey* FindSettingKey(std::string_view section, std::string_view key) {
    for (const SettingKey& row : kSettingKeys)
        if (row.section == section && NumberIn(row, key))
            return &row;
    return nullptr;
}

std::string DefaultOf(std::string_view section, std::string_view key) {
    if (const SettingKey* row = FindSettingKey(section, key))
        return ReplaceAll(row->defaultText, "{n}", key.substr(row->prefix.size()));
    bool background = false;
    const ColorArea* area = section == kColorsSection ? AreaOfKey(key, background) : nullptr;
    if (area == nullptr)
        return "";
    const auto color = background ? area->background : area->text;
    return color ? FromColor(*color) : "";
}

std::string CheckValue(SettingKind kind, std::string_view value) {
    try {
        switch (kind) {
        case SettingKind::Text:
            break;
        case SettingKind::Boolean:
            ToBoolean(value);
            break;
        case SettingKind::Integer:
            ToInteger(value);
            break;
        case SettingKind::Portfolio:
            if (const int number = ToInteger(value); number < 1 || number > kPortfolios)
                return "Not a portfolio from 1 to 10";
            break;
        case SettingKind::Color:
            ToColor(value);
            break;
        case SettingKind::Single:
            ToSingle(value);
            break;
        }
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return "";
}

std::string CheckValue(const SettingKey& row, std::string_view value) {
    return CheckValue(row.kind, value);
}

std::string UsableSetting(const SettingsStore& store, std::string_view section,
                          std::string_view key) {
    std::string fallback = DefaultOf(section, key);
    std::string value = store.GetSetting(section, key, fallback);
    if (value == fallback)
        return value;
    const SettingKey* row = FindSettingKey(section, key);
    bool background = false;
    const bool isColor = section == kColorsSection && AreaOfKey(key, background) != nullptr;
    const SettingKind kind = row != nullptr ? row->kind
                             : isColor      ? SettingKind::Color
                                            : SettingKind::Text;
    return CheckValue(kind, value).empty() ? value : fallback;
}

std::vector<SettingProblem> CheckSettings(const SettingsStore& store) {
    std::vector<SettingProblem> problems;
    const auto check = [&](std::string_view section, const std::string& key, SettingKind kind) {
        const std::string fallback = DefaultOf(section, key);
        std::string value = store.GetSetting(section, key, fallback);
        if (value == fallback)
            return;
        if (std::string problem = CheckValue(kind, value); !problem.empty())
            problems.push_back({std::string(section), key, std::move(value), std::move(problem)});
    };
    for (const SettingKey& row : kSettingKeys) {
        if (row.kind == SettingKind::Text) // as are all that are numbered without an end
            continue;
        const std::string prefix(row.prefix);
        for (int number = row.first; number <= row.last; ++number)
            check(row.section, number == kNotNumbered ? prefix : prefix + std::to_string(number),
                  row.kind);
    }
    for (const ColorArea& area : kColorAreas) {
        if (area.hasText)
            check(kColorsSection, TextColorKey(area.code), SettingKind::Color);
        check(kColorsSection, BackgroundColorKey(area.code), SettingKind::Color);
    }
    for (const CommandRow& row : Commands()) {
        const auto value = store.FindSetting(kShortcutsSection, row.name);
        if (TakesShortcut(row) && value && !ReadChords(*value))
            problems.push_back(
                {std::string(kShortcutsSection), std::string(row.name), *value, "Not a shortcut"});
    }
    return problems;
}

std::string DamagedSettingsText(const SettingsStore& store) {
    std::string lines;
    for (const SettingProblem& problem : CheckSettings(store))
        lines += "\n" + problem.key + " = " + problem.value + " (" + problem.problem + ")";
    return lines.empty() ? lines
                         : "These settings hold no usable value; their defaults are used:" + lines;
}

} // namespace tallowmere
