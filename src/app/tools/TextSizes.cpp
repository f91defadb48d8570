#include "app/tools/TextSizes.h"

#include "app/forms/MainMenus.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"
#include "core/tools/text_size.h"

#include <QApplication>

namespace tallowmere {

namespace {

std::size_t StoredIndex(const SettingsStore& settings) {
    return TextSizeIndex(UsableSetting(settings, kSettingsSection, "TextSize"));
}

// To set a font lays out every window, even where it is the one that they have.
void SetFont(const QFont& font) {
    if (font != QApplication::font())
        QApplication::setFont(font);
}

} // namespace

TextSizes::TextSizes(SettingsStore& settings)
    : m_settings(settings), m_systemFont(QApplication::font()) {
    Read();
}

TextSizes::~TextSizes() {
    SetFont(m_systemFont);
}

void TextSizes::Serve(MainMenus& menus) {
    m_menus = &menus;
    menus.textSizes[StoredIndex(m_settings)]->setChecked(true);
    for (std::size_t index = 0; index < kTextSizes.size(); ++index) {
        QObject::connect(
            menus.textSizes[index], &QAction::triggered, menus.textSizes[index], [this, index] {
                m_settings.SaveSetting(kSettingsSection, "TextSize", kTextSizes[index].name);
                Show(index);
            });
    }
}

void TextSizes::Read() {
    const std::size_t index = StoredIndex(m_settings);
    if (m_menus)
        m_menus->textSizes[index]->setChecked(true);
    Show(index);
}

void TextSizes::Show(std::size_t index) {
    QFont font = m_systemFont;
    font.setPointSizeF(m_systemFont.pointSizeF() * kTextSizes[index].scale);
    SetFont(font);
}

} // namespace tallowmere
