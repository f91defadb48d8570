#include "app/tools/ColorConfig.h"

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "core/shell/area_colors.h"
#include "core/shell/settings_store.h"
#include "core/tools/color_schemes.h"

#include <QApplication>
#include <QEvent>

namespace tallowmere {

namespace {

/// Of the hint in an empty box, which stays legible with it.
constexpr float kHintOpacity = 0.75F;

void Paint(QWidget* control, ColorPair colors, QPalette::ColorRole text,
           QPalette::ColorRole background) {
    // System colours are those of the system, not what an earlier call left on the control.
    const QPalette system = QApplication::palette(control);
    QPalette palette = control->palette();
    palette.setColor(text, ScreenText(colors, system));
    palette.setColor(background, ScreenColor(colors.background, system));
    QColor hint = palette.color(text);
    hint.setAlphaF(kHintOpacity);
    palette.setColor(QPalette::PlaceholderText, hint);
    control->setPalette(palette);
}

} // namespace

ColorConfig::ColorConfig(frmMain& form, SettingsStore& settings)
    : QObject(&form), m_form(form), m_settings(settings) {
    form.installEventFilter(this);
}

void ColorConfig::Apply() {
    const AreaColors colors = ReadAreaColors(m_settings);
    Paint(m_form.txtStock, colors.Of("TE"), QPalette::Text, QPalette::Base);
    Paint(m_form.List1, colors.Of("TL"), QPalette::Text, QPalette::Base);
    Paint(m_form.WebStatus, colors.Of("WS"), QPalette::WindowText, QPalette::Window);
    Paint(m_form.lblStat, colors.Of("WS"), QPalette::WindowText, QPalette::Window);
    const std::uint32_t window = colors.Of("Back").background;
    m_form.SetBackground(ScreenColor(window, QApplication::palette(&m_form)));
    for (Chip* link : m_form.lbllink) {
        const std::string tag = FromQt(link->property("tag").toString());
        if (const auto pair = colors.OfLink(link->Index(), tag, FromQt(link->Caption())))
            link->SetColors(*pair);
    }
    Q_EMIT Applied(SchemeBeside(window));
}

bool ColorConfig::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange)
        Apply();
    return QObject::eventFilter(watched, event);
}

} // namespace tallowmere
