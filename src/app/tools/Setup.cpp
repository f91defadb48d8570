#include "app/tools/Setup.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmUser.h"
#include "app/links/PaneDeck.h"
#include "app/market/ActiveEdges.h"
#include "app/market/TickerStrip.h"
#include "app/tools/ColorSettings.h"
#include "core/portfolio/keyed_store.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/start_page.h"
#include "core/text/bytes.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

Setup::Setup(frmMain& form, MainState& state, const Services& services, PaneDeck& panes,
             ActiveEdges& edges, TickerStrip& ticker, ColorSettings& colors)
    : QObject(&form), m_form(form), m_state(state), m_services(services), m_panes(panes),
      m_edges(edges), m_ticker(ticker), m_colors(colors) {}

void Setup::Show() {
    m_memberArmed = false;
    m_helpRequested = false;
    m_reportRequested = false;
    frmUser dialog(&m_form);
    Fill(dialog);
    Connect(dialog);
    dialog.exec();
    Save(dialog);
    Q_EMIT Closed();
    if (m_helpRequested)
        Q_EMIT HelpRequested();
    if (m_reportRequested)
        Q_EMIT ReportRequested();
}

void Setup::Fill(frmUser& dialog) const {
    const SettingsStore& settings = m_services.settings;
    dialog.txtMNLogin->setText(m_state.streamLogin);
    dialog.txtMNPwd->setText(m_state.streamPassword);
    dialog.txtFire->setText(ToQt(UsableSetting(settings, kSettingsSection, "Firewall")));
    dialog.chkFire->setChecked(ToInteger(UsableSetting(settings, kSettingsSection, "PROXY")) == 1);
    dialog.chkToolTips->setChecked(m_state.toolTips);
    dialog.chkSA->setChecked(m_state.clubMember);
    dialog.chkTick->setChecked(m_state.tickerShown);
    dialog.chkActive->setChecked(m_state.activeEdge);
}

void Setup::Connect(frmUser& dialog) {
    connect(dialog.chkTick, &QCheckBox::toggled, &m_ticker, &TickerStrip::Switch);
    connect(dialog.chkActive, &QCheckBox::toggled, &m_edges, &ActiveEdges::Switch);
    connect(dialog.chkToolTips, &QCheckBox::toggled, this, [this](bool on) {
        m_services.settings.SaveSetting(kSettingsSection, "Tips", FromBoolean(on));
        m_state.toolTips = on;
        m_form.SetToolTips(on);
    });
    connect(&dialog, &frmUser::HelpRightReleased, this, [&] { ToggleMember(dialog); });
    connect(dialog.cmdOK[1], &QPushButton::clicked, this, [&] { m_colors.Show(&dialog); });
    connect(dialog.cmdOK[2], &QPushButton::clicked, this, [this] { m_helpRequested = true; });
    connect(dialog.cmdOK[4], &QPushButton::clicked, this, &Setup::PurgeNotes);
    connect(dialog.cmdOK[5], &QPushButton::clicked, this, &Setup::SaveStartPage);
    connect(dialog.Label5, &QPushButton::clicked, this, [this] { m_reportRequested = true; });
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        connect(button, &QPushButton::clicked, &dialog, &QDialog::accept);
}

// The first release arms, the second one toggles.
void Setup::ToggleMember(frmUser& dialog) {
    m_memberArmed = !m_memberArmed;
    if (m_memberArmed)
        return;
    const bool shown = dialog.chkSA->isHidden();
    dialog.chkSA->setVisible(shown);
    m_services.prompts.Message(
        shown ? u"SA mode set to ON.. Double right click the Help Button to turn it OFF."_s
              : u"SA mode set to OFF.. Double right click the Help Button to turn it ON."_s,
        MessageTitle());
}

void Setup::PurgeNotes() {
    std::string ignored;
    TickerNotes(m_services.programFolder, ignored, "KILL", "", "", kTickerNotesFile);
}

void Setup::SaveStartPage() {
    const BrowserPane* pane = m_panes.Front();
    const StartPage page{pane == m_form.WebB, FromQt(pane->LocationURL())};
    m_services.settings.SaveSetting(kSettingsSection, "DefaultWeb", StartPageValue(page));
}

void Setup::Save(const frmUser& dialog) {
    m_state.clubMember = dialog.chkSA->isChecked();
    m_state.streamLogin = dialog.txtMNLogin->text();
    m_state.streamPassword = dialog.txtMNPwd->text();
    m_services.settings.SaveSettings(
        kSettingsSection, {{"SAVersion", FromBoolean(m_state.clubMember)},
                           {"MNL", FromQt(m_state.streamLogin)},
                           {"MNP", FromQt(m_state.streamPassword)},
                           {"Firewall", std::string(Trim(FromQt(dialog.txtFire->text())))},
                           {"PROXY", dialog.chkFire->isChecked() ? "1" : "0"}});
}

} // namespace tallowmere
