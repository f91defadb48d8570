#include "app/tools/ColorSettings.h"

#include "app/base/Prompts.h"
#include "app/forms/Chip.h"
#include "app/forms/frmColor.h"
#include "core/shell/area_colors.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/undo_recorder.h"
#include "core/tools/color_schemes.h"

#include <QApplication>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

const ColorArea* ChosenArea(const frmColor& dialog) {
    const int index = dialog.List1->ListIndex();
    return index < 0 ? nullptr : &kColorAreas.at(static_cast<std::size_t>(index));
}

SettingChange ChangeTo(const std::string& key, std::uint32_t color) {
    return {std::string(kColorsSection), key, FromColor(color)};
}

/// Makes the areas' keys be as if they had never been saved.
std::vector<SettingChange> Removed(std::span<const ColorArea> areas) {
    std::vector<SettingChange> changes;
    for (const ColorArea& area : areas)
        for (const auto& [key, color] : ColorsToSave(area, {}))
            changes.push_back({std::string(kColorsSection), key, std::nullopt});
    return changes;
}

/// What is stored for all areas.
std::vector<SettingChange> Stored(const SettingsStore& settings) {
    std::vector<SettingChange> stored = Removed(kColorAreas);
    for (SettingChange& each : stored)
        each.value = settings.FindSetting(each.section, each.key);
    return stored;
}

} // namespace

ColorSettings::ColorSettings(SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
                             QObject* parent)
    : QObject(parent), m_settings(settings), m_undo(undo), m_prompts(prompts) {}

void ColorSettings::Show(QWidget* owner) {
    frmColor dialog(owner);
    connect(dialog.List1, &ListBox::Clicked, this, [&] { ChooseArea(dialog); });
    connect(dialog.cmdFore[0], &QPushButton::clicked, this, [&] { ChangeColor(dialog, false); });
    connect(dialog.cmdFore[1], &QPushButton::clicked, this, [&] { ChangeColor(dialog, true); });
    connect(dialog.cmdReset, &QPushButton::clicked, this, [&] { Reset(dialog); });
    connect(dialog.cmdResetAll, &QPushButton::clicked, this, [&] { ChooseScheme(dialog, 0); });
    connect(dialog.cmbScheme, &QComboBox::activated, this,
            [&](int index) { ChooseScheme(dialog, index); });
    dialog.List1->SetListIndex(0);
    Refresh(dialog);
    const std::vector<SettingChange> before = Stored(m_settings);
    connect(dialog.cmdCancel, &QPushButton::clicked, this,
            [&] { Save("Colors as before", before); });
    dialog.exec();
}

void ColorSettings::Save(const std::string& command, const std::vector<SettingChange>& changes) {
    m_undo.Run(command, [&] { m_settings.ChangeSettings(changes); });
    Q_EMIT Changed();
}

void ColorSettings::Refresh(frmColor& dialog) {
    ChooseArea(dialog);
    const AreaColors colors = ReadAreaColors(m_settings);
    const ColorScheme* scheme = FindScheme(colors);
    const bool isDesigned =
        std::ranges::all_of(Stored(m_settings), [](const auto& each) { return !each.value; });
    const int index = scheme ? static_cast<int>(scheme - ColorSchemes().data()) + 1 : -1;
    dialog.cmbScheme->setCurrentIndex(isDesigned ? 0 : index);
}

void ColorSettings::ChooseArea(frmColor& dialog) {
    const ColorArea* area = ChosenArea(dialog);
    for (QPushButton* button : {dialog.cmdFore[0], dialog.cmdFore[1], dialog.cmdReset})
        button->setEnabled(area != nullptr);
    if (area == nullptr)
        return;
    m_sample = ReadAreaColors(m_settings).Of(area->code);
    dialog.cmdFore[0]->setEnabled(area->hasText);
    dialog.ShowSample(m_sample);
}

void ColorSettings::ChangeColor(frmColor& dialog, bool background) {
    const ColorArea* area = ChosenArea(dialog);
    if (area == nullptr)
        return;
    const QPalette system = QApplication::palette(dialog.Label1);
    const QColor shown =
        background ? ScreenColor(m_sample.background, system) : ScreenText(m_sample, system);
    const auto chosen =
        m_prompts.PickColor(shown, background ? u"Background Color"_s : u"Text Color"_s);
    if (!chosen)
        return;
    (background ? m_sample.background : m_sample.text) = StoredColor(*chosen);
    dialog.ShowSample(m_sample);
    std::vector<SettingChange> changes;
    for (const auto& [key, color] : ColorsToSave(*area, m_sample))
        changes.push_back(ChangeTo(key, color));
    Save("Color of " + std::string(area->entry), changes);
    Refresh(dialog);
}

void ColorSettings::Reset(frmColor& dialog) {
    if (const ColorArea* area = ChosenArea(dialog))
        Save("Color of " + std::string(area->entry), Removed({area, 1}));
    Refresh(dialog);
}

// The first scheme is that which all areas have as long as nothing was saved.
void ColorSettings::ChooseScheme(frmColor& dialog, int index) {
    if (index == 0) {
        Save("Designed colors", Removed(kColorAreas));
    } else if (index > 0) {
        const ColorScheme& scheme = ColorSchemes()[static_cast<std::size_t>(index) - 1];
        std::vector<SettingChange> changes;
        for (const auto& [key, color] : ColorsToSave(scheme))
            changes.push_back(ChangeTo(key, color));
        Save(std::string(scheme.name) + " colors", changes);
    }
    Refresh(dialog);
}

} // namespace tallowmere
