#include "app/tools/EngineNotice.h"

#include "app/base/Clock.h"
#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/engine/EngineVersion.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"
#include "core/tools/engine_age.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>
#include <QToolButton>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view kDismissedKey = "OldEngine";

QToolButton* AddButton(QHBoxLayout& layout, const QString& caption) {
    auto* button = new QToolButton;
    button->setText(caption);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    layout.addWidget(button);
    return button;
}

} // namespace

EngineNotice::EngineNotice(frmMain& form, SettingsStore& settings, const Clock& clock,
                           PaneDeck& panes)
    : QObject(&form), m_form(form), m_settings(settings), m_clock(clock), m_panes(panes) {}

void EngineNotice::Tell() {
    const std::string line =
        OldEngineLine(EngineVersion::SecurityPatch(),
                      UsableSetting(m_settings, kSettingsSection, kDismissedKey), m_clock.Today());
    if (line.empty())
        return;
    auto* bar = new QToolBar(u"Age of the web engine"_s, &m_form);
    bar->setObjectName(u"EngineNotice"_s);
    bar->setMovable(false);
    // No menu of the window offers to take it away: it goes by its own button.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->toggleViewAction()->setVisible(false);
    auto* content = new QWidget(bar);
    content->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto* layout = new QHBoxLayout(content);
    layout->setContentsMargins(4, 0, 4, 0);
    auto* text = new QLabel(ToQt(line));
    text->setTextFormat(Qt::PlainText);
    text->setToolTip(ToQt(line));
    // It must not widen the window.
    text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(text, 1);
    connect(AddButton(*layout, u"What to do"_s), &QToolButton::clicked, this,
            [this] { m_panes.Navigate(PortalAddress::Help() + u"#engine"_s); });
    connect(AddButton(*layout, u"Do not say it again"_s), &QToolButton::clicked, this, [this, bar] {
        bar->hide();
        bar->deleteLater();
        m_settings.SaveSetting(kSettingsSection, kDismissedKey, EngineVersion::SecurityPatch());
    });
    bar->addWidget(content);
    m_form.addToolBar(Qt::BottomToolBarArea, bar);
}

} // namespace tallowmere
