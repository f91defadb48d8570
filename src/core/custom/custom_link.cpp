#include "core/custom/custom_link.h"

#include "core/custom/page_tiles.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/text/bytes.h"
#include "core/text/cut_characters.h"
#include "core/tools/color_areas.h"

namespace tallowmere {

namespace {

constexpr std::string_view kAddress = "Custom";
constexpr std::string_view kTitle = "CustomT";
constexpr std::string_view kFore = "CustomF";
constexpr std::string_view kBack = "CustomB";
constexpr std::string_view kColumns = "CustomC";

std::string KeyOf(std::string_view prefix, int slot) {
    return std::string(prefix) + std::to_string(slot);
}

std::string Load(const SettingsStore& settings, std::string_view prefix, int slot) {
    const std::string key = KeyOf(prefix, slot);
    return settings.GetSetting(kSettingsSection, key, DefaultOf(kSettingsSection, key));
}

std::uint32_t LoadColor(const SettingsStore& settings, std::string_view prefix, int slot) {
    return ToColor(UsableSetting(settings, kSettingsSection, KeyOf(prefix, slot)));
}

using Values = std::vector<SettingChange>;

void Put(Values& values, std::string_view prefix, int slot, std::string_view value) {
    values.push_back({std::string(kSettingsSection), KeyOf(prefix, slot), std::string(value)});
}

void PutColors(Values& values, int slot, ColorPair colors) {
    Put(values, kFore, slot, FromColor(colors.text));
    Put(values, kBack, slot, FromColor(colors.background));
}

void PutColumns(Values& values, int slot, int columns) {
    if (columns == 0)
        values.push_back({std::string(kSettingsSection), KeyOf(kColumns, slot), std::nullopt});
    else
        Put(values, kColumns, slot, std::to_string(columns));
}

std::uint32_t AreaColor(const SettingsStore& settings, const std::string& key,
                        std::uint32_t fallback) {
    const std::string text = settings.GetSetting(kColorsSection, key, FromColor(fallback));
    return CheckValue(SettingKind::Color, text).empty() ? ToColor(text) : fallback;
}

void PutUnused(Values& values, const SettingsStore& settings, int slot) {
    Put(values, kAddress, slot, "");
    Put(values, kTitle, slot, kEmptyCustomCaption);
    PutColors(values, slot, CustomAreaColors(settings));
    PutColumns(values, slot, 0);
}

} // namespace

std::string OverwriteQuestion(std::string_view caption) {
    return "Do you want to overwrite the '" + std::string(caption) + "' link?";
}

std::string LinkRemoved(std::string_view caption) {
    return "Link \"" + std::string(caption) + "\" removed.";
}

std::string_view CutTitle(std::string_view title) {
    return CutCharacters(title, kLongestTitle);
}

bool MaySaveCustomLink(std::string_view title, std::string_view address) {
    return !title.empty() && !(IsUnusedSlot(title) && !Trim(address).empty());
}

ColorPair StorableColors(ColorPair colors) {
    return ColorsOver({kNearBlack, kNearBlack}, colors);
}

ColorPair ColorsOver(ColorPair shown, ColorPair record) {
    return {record.text == 0 ? shown.text : record.text,
            record.background == 0 ? shown.background : record.background};
}

ColorPair CustomAreaColors(const SettingsStore& settings) {
    return {AreaColor(settings, TextColorKey("CUST"), kSystemWindowText),
            AreaColor(settings, BackgroundColorKey("CUST"), kEditedCustomBackground)};
}

CustomLinkRecord LoadCustomLink(const SettingsStore& settings, int slot) {
    return {Load(settings, kAddress, slot),
            Load(settings, kTitle, slot),
            {LoadColor(settings, kFore, slot), LoadColor(settings, kBack, slot)}};
}

// A record is written at once: no crash and no full disk leaves the address of one link under the
// title of another, and none comes between a link's old place and its new one.

void SaveCustomLink(SettingsStore& settings, int slot, const CustomLinkRecord& record) {
    Values values;
    Put(values, kAddress, slot, record.address);
    Put(values, kTitle, slot, record.title);
    PutColors(values, slot, StorableColors(record.colors));
    settings.ChangeSettings(values);
}

void SaveLinkColors(SettingsStore& settings, int slot, ColorPair colors) {
    Values values;
    PutColors(values, slot, colors);
    settings.ChangeSettings(values);
}

int LoadColumns(const SettingsStore& settings, int slot) {
    const int columns = ToInteger(UsableSetting(settings, kSettingsSection, KeyOf(kColumns, slot)));
    return columns >= 1 && columns <= kMostTileColumns ? columns : 0;
}

void SaveColumns(SettingsStore& settings, int slot, int columns) {
    Values values;
    PutColumns(values, slot, columns);
    settings.ChangeSettings(values);
}

void ResetCustomLink(SettingsStore& settings, int slot) {
    Values values;
    PutUnused(values, settings, slot);
    settings.ChangeSettings(values);
}

void MoveCustomLink(SettingsStore& settings, int from, int to) {
    if (from == to || !IsCustomSlot(from) || !IsCustomSlot(to))
        return;
    Values values;
    for (const std::string_view prefix : {kAddress, kTitle, kFore, kBack})
        Put(values, prefix, to, Load(settings, prefix, from));
    PutColumns(values, to, LoadColumns(settings, from));
    PutUnused(values, settings, from);
    settings.ChangeSettings(values);
}

} // namespace tallowmere
