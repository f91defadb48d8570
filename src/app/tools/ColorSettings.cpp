#include "app/tools/ColorSettings.h"

#include "app/base/Prompts.h"
#include "app/forms/Chip.h"
#include "app/forms/frmColor.h"
#include "core/shell/area_colors.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/undo_recorder.h"

#include <QApplication>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

const ColorArea* ChosenArea(const frmColor& dialog) {
    const int index = dialog.List1->ListIndex();
    return index < 0 ? nullptr : &kColorAreas.at(static_cast<std::size_t>(index));
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
    dialog.List1->SetListIndex(0);
    ChooseArea(dialog);
    dialog.exec();
}

void ColorSettings::ChooseArea(frmColor& dialog) {
    const ColorArea* area = ChosenArea(dialog);
    for (QPushButton* button : dialog.cmdFore)
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
    m_undo.Run("Color of " + std::string(area->entry), [&] {
        for (const auto& [key, color] : ColorsToSave(*area, m_sample))
            m_settings.SaveSetting(kColorsSection, key, FromColor(color));
    });
}

} // namespace tallowmere
