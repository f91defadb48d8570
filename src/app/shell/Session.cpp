#include "app/shell/Session.h"

#include "app/backup/Backups.h"
#include "app/backup/DatedCopies.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/engine/DownloadList.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/SiteZooms.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/links/ServerLists.h"
#include "app/market/ActiveEdges.h"
#include "app/market/ClubLogin.h"
#include "app/market/IndexStrip.h"
#include "app/market/TickerStrip.h"
#include "app/market/Timers.h"
#include "app/portfolio/ListColumns.h"
#include "app/portfolio/Portfolios.h"
#include "app/shell/ClosingNote.h"
#include "app/shell/KeptSession.h"
#include "app/shell/Portal.h"
#include "app/shell/Subsystems.h"
#include "app/shell/WindowPlace.h"
#include "app/sites/SiteDataKeeper.h"
#include "app/sites/UserSites.h"
#include "app/tools/ColorConfig.h"
#include "app/tools/DailyReminders.h"
#include "app/tools/ReminderWatch.h"
#include "core/links/index_query.h"
#include "core/market/alert_store.h"
#include "core/portfolio/keyed_store.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/text/runtime_error.h"
#include "core/tools/reminders.h"

#include <QCoreApplication>
#include <QTimer>

namespace tallowmere {

using namespace Qt::StringLiterals;

Session::Session(SessionSetup setup)
    : m_setup(std::move(setup)), m_userSites(std::make_unique<UserSites>(
                                     m_setup.tables, m_setup.folders.tables / "sites.toml")),
      m_settings(m_setup.folders.settingsFile),
      m_undo(m_settings, m_setup.folders.programFolder,
             {std::string(kTickerNotesFile.substr(1)), std::string(kRemindersFile.substr(1)),
              std::string(kAlertsFile)},
             m_setup.folders.programFolder / "undo.txt"),
      m_keys(m_settings), m_web(m_setup.web),
      m_profile(std::make_unique<EngineProfile>(PathToQt(m_setup.folders.engine),
                                                PathToQt(m_setup.folders.programFolder), m_web,
                                                m_setup.prompts)),
      m_transfers(m_web), m_textSizes(m_settings),
      m_form(std::make_unique<frmMain>(*m_profile, m_setup.prompts, m_keys)) {
    m_subsystems = std::make_unique<Subsystems>(m_setup, *m_form, m_settings, m_undo, m_web,
                                                *m_profile, m_transfers, *m_userSites);
    m_profile->Zooms().KeepIn(m_settings);
    m_textSizes.Serve(*m_form->menus);
    m_web.SetHelpFolder(PathToQt(m_setup.folders.data / "help"));
    m_web.SetShortcuts([this] { return m_keys.Chords(); });
    m_portal = std::make_unique<Portal>(m_setup, m_web, *m_subsystems);
    connect(m_form.get(), &frmMain::Closing, this, &Session::Close);
    connect(m_form.get(), &frmMain::PanelsChanged, this,
            [this] { SavePanels(*m_form, m_settings); });
    const MarketControllers& market = m_subsystems->market;
    connect(market.club, &ClubLogin::PageOver, this, [this](bool isPaneFree) {
        if (isPaneFree)
            ChooseFirstPage();
    });
    connect(market.club, &ClubLogin::Over, this, [this] {
        QTimer::singleShot(0, m_subsystems->links.lists, &ServerLists::FetchAll);
        m_subsystems->tools.reminders->CheckReminders();
    });
    connect(m_subsystems->backup.backups, &Backups::Restored, this, &Session::ReadSettingsAnew);
    connect(m_form->menus->exit, &QAction::triggered, m_form.get(), &QWidget::close);
}

// The controllers end with the form, while what they refer to is still there. The engine may ask
// for a page until it ends itself; by then there is nobody left to answer.
Session::~Session() {
    m_web.SetLatePortal({});
    // What the pages were saving ends with them; those who would tell of it go as well.
    m_profile->Downloads().blockSignals(true);
    m_form.reset();
}

void Session::Start() {
    // A store that cannot be written does not keep the program from starting either.
    std::string problem;
    const auto attempt = [&problem](const std::function<void()>& write) {
        try {
            write();
        } catch (const RuntimeError& error) {
            problem = error.what();
        }
    };
    const std::string note = TakeClosingNote(m_setup.folders.programFolder);
    Subsystems& parts = *m_subsystems;
    ApplyProxy();
    RestoreWindow(*m_form, m_settings);
    m_form->ShowPortfolioLabel(Flag("PortLabels"));
    parts.portfolio.portfolios->SetPorts();
    // Areas first: the user's own links have colours of their own over them.
    parts.tools.colors->Apply();
    ShowCustomLinks(*m_form, m_settings);
    ApplyPreferences();
    // The window does not wait for the club, but what is to come after it does.
    const bool isAtClub = parts.market.club->Begin();
    const bool isFirstStart = Text("First").isEmpty();
    if (isFirstStart)
        attempt([this] { m_settings.SaveSetting(kSettingsSection, "First", "OK"); });
    if (!isAtClub)
        ChooseFirstPage();
    parts.market.edges->Start();
    parts.market.ticker->Start();
    parts.links.panel->EnableLinks();
    parts.portfolio.portfolios->SelectPortfolio(
        ToInteger(UsableSetting(m_settings, kSettingsSection, "TickerList")));
    if (isFirstStart)
        attempt([&] { parts.portfolio.portfolios->SeedFirstStart(); });
    parts.market.strip->Start();
    m_form->show();
    if (!isAtClub)
        parts.tools.reminders->CheckReminders();
    parts.kept->RestoreWatches();
    m_form->txtStock->setFocus();
    parts.market.timers->Start();
    // The first page does not wait for the lists of the menus.
    if (!isAtClub)
        QTimer::singleShot(0, parts.links.lists, &ServerLists::FetchAll);
    for (const std::string& text : {problem, DamagedSettingsText(m_settings), note})
        if (!text.empty())
            m_setup.prompts.Message(ToQt(text), MessageTitle());
    parts.sites->TellProblems();
    parts.tools.dueReminders->Start();
    parts.backup.copies->Start();
}

void Session::ApplyPreferences() {
    m_subsystems->links.accounts = {Flag("SAVersion"), Text("MNL"), Text("MNP")};
    m_form->SetToolTips(Flag("Tips"));
}

// After a restore, or after one was taken back.
void Session::ReadSettingsAnew() {
    ApplyProxy();
    ApplyPreferences();
    m_textSizes.Read();
    m_subsystems->portfolio.columns->Read();
    m_form->ShowPortfolioLabel(Flag("PortLabels"));
    m_form->LayOut();
    const MarketControllers& market = m_subsystems->market;
    if (market.edges->IsActive() != Flag("ActiveEdge"))
        market.edges->Switch(Flag("ActiveEdge"));
    if (market.ticker->IsShown() != Flag("WSCTick"))
        market.ticker->Switch(Flag("WSCTick"));
    m_subsystems->sites->data->ReadSwitches();
    m_keys.Read();
}

void Session::ApplyProxy() {
    const bool isNamed = ToInteger(UsableSetting(m_settings, kSettingsSection, "PROXY")) == 1;
    const ProxySetting proxy{Text("Firewall"), isNamed ? ProxySetting::kNamedProxy : 0};
    m_transfers.UseProxy(proxy);
    m_portal->UseProxy(proxy);
}

void Session::ChooseFirstPage() {
    if (m_subsystems->kept->RestorePanes())
        return;
    // A member of the club is at the club's page.
    const std::string indices =
        m_subsystems->links.accounts.clubMember
            ? ""
            : m_setup.tables.sites.Address("quote_server", DetailedIndexQuery());
    m_subsystems->links.panes->OpenStartPage(Text("DefaultWeb"), ToQt(indices));
}

bool Session::Flag(std::string_view key) const {
    return ToBoolean(UsableSetting(m_settings, kSettingsSection, key));
}

QString Session::Text(std::string_view key) const {
    return ToQt(UsableSetting(m_settings, kSettingsSection, key));
}

void Session::Close() {
    m_subsystems->market.Stop();
    m_transfers.CancelAll();
    m_portal->Save();
    try {
        m_settings.SaveSetting(kSettingsSection, "TickerList",
                               std::to_string(m_subsystems->portfolio.portfolios->Current()));
        SaveFormPosition(*m_form, m_settings);
        m_subsystems->kept->Save();
    } catch (const RuntimeError& error) {
        // The program ends all the same, with every other window.
        m_setup.prompts.Message(ToQt(error.what()), MessageTitle());
        if (m_setup.prompts.IsLeft())
            LeaveClosingNote(m_setup.folders.programFolder, error.what());
    }
    QCoreApplication::quit();
}

void Session::Raise() {
    m_form->setWindowState((m_form->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

} // namespace tallowmere
