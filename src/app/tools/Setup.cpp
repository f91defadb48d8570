#include "app/tools/Setup.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmUser.h"
#include "app/links/Accounts.h"
#include "app/links/PaneDeck.h"
#include "app/tools/ColorSettings.h"
#include "core/portfolio/keyed_store.h"
#include "core/shell/conversion.h"
#include "core/shell/kept_pages.h"
#include "core/shell/setting_keys.h"
#include "core/shell/start_page.h"
#include "core/shell/undo_recorder.h"
#include "core/text/bytes.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

Setup::Setup(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
             const std::filesystem::path& programFolder, Accounts& accounts, PaneDeck& panes,
             ColorSettings& colors)
    : QObject(&form), m_form(form), m_settings(settings), m_undo(undo), m_prompts(prompts),
      m_programFolder(programFolder), m_accounts(accounts), m_panes(panes), m_colors(colors) {}

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
    const auto isOn = [this](std::string_view key) {
        return ToBoolean(UsableSetting(m_settings, kSettingsSection, key));
    };
    dialog.txtMNLogin->setText(m_accounts.streamLogin);
    dialog.txtMNPwd->setText(m_accounts.streamPassword);
    dialog.txtFire->setText(ToQt(UsableSetting(m_settings, kSettingsSection, "Firewall")));
    dialog.chkFire->setChecked(ToInteger(UsableSetting(m_settings, kSettingsSection, "PROXY")) ==
                               1);
    dialog.chkToolTips->setChecked(m_form.ShowsToolTips());
    dialog.chkSA->setChecked(m_accounts.clubMember);
    dialog.chkTick->setChecked(isOn("WSCTick"));
    dialog.chkActive->setChecked(isOn("ActiveEdge"));
    dialog.chkKeep->setChecked(isOn("KeepPages"));
}

void Setup::Connect(frmUser& dialog) {
    connect(dialog.chkTick, &QCheckBox::toggled, this, &Setup::TickerSwitched);
    connect(dialog.chkActive, &QCheckBox::toggled, this, &Setup::EdgesSwitched);
    connect(dialog.chkToolTips, &QCheckBox::toggled, this, [this](bool on) {
        m_settings.SaveSetting(kSettingsSection, "Tips", FromBoolean(on));
        m_form.SetToolTips(on);
    });
    connect(dialog.chkKeep, &QCheckBox::toggled, this, [this](bool on) {
        m_settings.SaveSetting(kSettingsSection, "KeepPages", FromBoolean(on));
        // Who does not want the pages kept does not want to find them written either.
        if (!on)
            SaveKeptPages(m_settings, {});
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
    m_prompts.Message(
        shown ? u"SA mode set to ON.. Double right click the Help Button to turn it OFF."_s
              : u"SA mode set to OFF.. Double right click the Help Button to turn it ON."_s,
        MessageTitle());
}

void Setup::PurgeNotes() {
    m_undo.Run("Purge Notes", [this] {
        std::string ignored;
        TickerNotes(m_programFolder, ignored, "KILL", "", "", kTickerNotesFile);
        m_undo.TellRemoved("All notes removed.");
    });
}

void Setup::SaveStartPage() {
    const BrowserPane* pane = m_panes.Front();
    const StartPage page{pane == m_form.WebB, FromQt(pane->LocationURL())};
    m_settings.SaveSetting(kSettingsSection, "DefaultWeb", StartPageValue(page));
}

void Setup::Save(const frmUser& dialog) {
    m_accounts.clubMember = dialog.chkSA->isChecked();
    m_accounts.streamLogin = dialog.txtMNLogin->text();
    m_accounts.streamPassword = dialog.txtMNPwd->text();
    m_settings.SaveSettings(kSettingsSection,
                            {{"SAVersion", FromBoolean(m_accounts.clubMember)},
                             {"MNL", FromQt(m_accounts.streamLogin)},
                             {"MNP", FromQt(m_accounts.streamPassword)},
                             {"Firewall", std::string(Trim(FromQt(dialog.txtFire->text())))},
                             {"PROXY", dialog.chkFire->isChecked() ? "1" : "0"}});
}

} // namespace tallowmere
