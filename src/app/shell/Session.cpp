#include "app/shell/Session.h"

#include "app/base/QtText.h"
#include "app/base/TransferControl.h"
#include "app/base/modMain.h"
#include "app/custom/CustomEditor.h"
#include "app/custom/CustomMenu.h"
#include "app/custom/MultiLinks.h"
#include "app/custom/PageCells.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/links/SeparateBrowser.h"
#include "app/links/ServerLists.h"
#include "app/links/SitePopups.h"
#include "app/links/SmartNavigate.h"
#include "app/market/ActiveEdges.h"
#include "app/market/IndexStrip.h"
#include "app/market/TickerStrip.h"
#include "app/market/Timers.h"
#include "app/market/WatchWindows.h"
#include "app/portfolio/PortfolioCommands.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/QuoteMenus.h"
#include "app/portfolio/QuotePage.h"
#include "app/portfolio/Reports.h"
#include "app/portfolio/TickerBox.h"
#include "app/portfolio/TickerImport.h"
#include "app/quotes/LiveQuotes.h"
#include "app/sites/SiteEditor.h"
#include "app/sites/UserSites.h"
#include "app/tools/ColorConfig.h"
#include "app/tools/ColorSettings.h"
#include "app/tools/DailyReminders.h"
#include "app/tools/Help.h"
#include "app/tools/Setup.h"
#include "core/market/index_strip.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/text/runtime_error.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kClubLink = 189;

/// What is wrong with the user's table, for one line: files are named without their folders.
QString TextOfProblems(const std::vector<std::string>& problems) {
    if (problems.empty())
        return {};
    const QString first = ToQt(problems.front());
    const auto file = first.lastIndexOf(u'/', first.indexOf(u".toml:"_s)) + 1;
    const auto more = problems.size() - 1;
    return more == 0 ? first.mid(file) : first.mid(file) + u" (and %1 more)"_s.arg(more);
}

} // namespace

Session::Session(SessionSetup setup)
    : m_setup(std::move(setup)), m_userSites(std::make_unique<UserSites>(
                                     m_setup.tables, m_setup.folders.tables / "sites.toml")),
      m_settings(m_setup.folders.settingsFile), m_services{m_settings, m_setup.tables.sites,
                                                           m_setup.prompts, m_setup.clock,
                                                           m_setup.folders.programFolder},
      m_web(std::make_unique<WebAccess>(m_setup.web)),
      m_profile(std::make_unique<EngineProfile>(PathToQt(m_setup.folders.engine),
                                                PathToQt(m_setup.folders.programFolder), *m_web,
                                                m_setup.prompts)),
      m_tmNet(std::make_unique<TransferControl>(*m_web)),
      m_spooNet(std::make_unique<TransferControl>(*m_web)),
      m_inet(std::make_unique<TransferPool>(*m_web)),
      m_form(std::make_unique<frmMain>(*m_profile, m_setup.prompts)) {
    LeadAddresses();
    frmMain& form = *m_form;
    m_outside = new SeparateBrowser(m_setup.tables.sites, *m_web, m_setup.prompts, &form);
    m_panes = new PaneDeck(form, m_state, m_services, *m_outside);
    m_portfolios = new Portfolios(form, m_state, m_services);
    m_tickers = new TickerBox(form, m_state, m_services, *m_portfolios);
    m_dispatch = new LinkDispatch(form, m_state, m_services, *m_panes, *m_tickers, *m_inet);
    m_links = new LinkPanel(form, m_state, m_services, *m_dispatch, *m_panes);
    m_popups =
        new SitePopups(form, m_state, m_services, m_setup.tables.menus, *m_dispatch, *m_panes);
    m_strip = new IndexStrip(form, m_services, *m_panes, *m_spooNet);
    m_edges = new ActiveEdges(form, m_state, m_services);
    m_colors = new ColorConfig(form, m_services, *m_portfolios);
    m_portfolioCommands = new PortfolioCommands(form, m_state, m_services, *m_portfolios);
    m_quotePage = new QuotePage(form, m_state, m_services, *m_dispatch, *m_panes, *m_inet);
    m_quoteMenus = new QuoteMenus(form, m_state, m_services, *m_panes, *m_links, *m_quotePage);
    m_reports = new Reports(form, m_services, *m_dispatch);
    m_editor = new CustomEditor(form, m_state, m_services, *m_dispatch);
    new CustomMenu(form, m_state, m_services, *m_links, *m_dispatch, *m_editor);
    m_multiLinks = new MultiLinks(form, m_state, m_services, *m_dispatch, *m_links, *m_colors);
    new PageCells(form, m_services, *m_panes, *m_profile);
    m_reminders = new DailyReminders(form, m_services, *m_dispatch);
    m_import = new TickerImport(form, m_state, m_services, *m_panes, *m_portfolios, *m_inet);
    m_watches = new WatchWindows(form, m_services, *m_profile, *m_dispatch);
    m_timers = new Timers(form, m_services, *m_tmNet);
    m_ticker = new TickerStrip(form, m_state, m_services);
    m_lists = new ServerLists(m_services, *m_panes, *m_popups, *m_tmNet, &form);
    m_navigate = new SmartNavigate(form, m_state, m_services, *m_panes);
    m_help = new Help(form, m_services, *m_panes, *m_outside);
    m_setupDialog = new Setup(form, m_state, m_services, *m_panes, *m_edges, *m_ticker,
                              *new ColorSettings(m_services, &form));
    m_siteEditor = new SiteEditor(form, m_state, m_services, m_setup.tables, m_setup.web,
                                  *m_userSites, *m_panes);
    m_web->SetHelpFolder(PathToQt(m_setup.folders.data / "help"));
    ConnectPortal();
    Connect();
    ConnectTools();
}

Session::~Session() = default;

void Session::ConnectPortal() {
    if (m_setup.web == WebMode::Live) {
        m_live = std::make_unique<LiveQuotes>(m_setup.tables.sites, m_setup.texts, m_setup.sources,
                                              m_setup.clock,
                                              m_setup.folders.programFolder / "quotes.json");
        m_web->SetLatePortal([this](const std::string& host, const std::string& pathAndQuery,
                                    WebAccess::PortalReply reply) {
            m_live->Answer(host, m_ticker->WithTickers(pathAndQuery), std::move(reply));
        });
    } else if (m_setup.portal) {
        m_web->SetPortal([this](const std::string& host, const std::string& pathAndQuery) {
            return m_setup.portal(host, m_ticker->WithTickers(pathAndQuery));
        });
    }
}

void Session::Connect() {
    connect(m_tickers, &TickerBox::OpenLastLink, m_dispatch, &LinkDispatch::Click);
    connect(m_tickers, &TickerBox::EdgesTouched, m_edges, &ActiveEdges::Touch);
    connect(m_links, &LinkPanel::EdgesTouched, m_edges, &ActiveEdges::Touch);
    connect(m_panes, &PaneDeck::BrowsingStarts, m_edges, &ActiveEdges::HideAll);
    const auto hold = [this](bool held) { m_state.edgesHeld = held; };
    connect(m_links, &LinkPanel::Held, this, hold);
    connect(m_popups, &SitePopups::Held, this, hold);
    connect(m_quoteMenus, &QuoteMenus::Held, this, hold);
    connect(m_dispatch, &LinkDispatch::PortfolioMenuRequested, m_quoteMenus, &QuoteMenus::PopUp);
    connect(m_dispatch, &LinkDispatch::CalculatorRequested, m_outside,
            &SeparateBrowser::StartCalculator);
    connect(m_form.get(), &frmMain::Closing, this, &Session::Close);
    connect(m_form.get(), &frmMain::PanelsChanged, this, &Session::SaveWindow);
    connect(m_form->menus->exit, &QAction::triggered, m_form.get(), &QWidget::close);
}

void Session::ConnectTools() {
    connect(m_userSites.get(), &UserSites::Changed, this, &Session::LeadAddresses);
    connect(m_userSites.get(), &UserSites::ProblemsFound, this, &Session::TellOfTables);
    connect(m_dispatch, &LinkDispatch::NavigateRequested, m_navigate, &SmartNavigate::Show);
    connect(m_dispatch, &LinkDispatch::SetupRequested, m_setupDialog, &Setup::Show);
    connect(m_dispatch, &LinkDispatch::AlertsStarted, m_timers, &Timers::StartAlerts);
    connect(m_dispatch, &LinkDispatch::PageLinkOpened, m_timers, &Timers::Unmark);
    connect(m_setupDialog, &Setup::Closed, m_colors, &ColorConfig::Apply);
    connect(m_setupDialog, &Setup::HelpRequested, m_help, &Help::Open);
    connect(m_setupDialog, &Setup::ReportRequested, m_help, &Help::Report);
}

void Session::LeadAddresses() {
    if (m_setup.web == WebMode::Live)
        m_web->SetResolver(MakeResolver(m_setup.tables));
}

// The status line says it at once, and once more when the page that is loading has had its say.
void Session::TellOfTables() {
    const QString text = TextOfProblems(m_userSites->Problems());
    if (text.isEmpty())
        return;
    m_panes->ShowStatus(text);
    if (m_form->Web->Busy())
        connect(
            m_form->Web, &BrowserPane::DocumentComplete, m_panes,
            [this, text] { m_panes->ShowStatus(text); }, Qt::SingleShotConnection);
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
    ApplyProxy();
    RestoreWindow();
    ShowPortfolioLabels();
    m_portfolios->SetPorts();
    // Areas first: the user's own links have colours of their own over them.
    m_colors->Apply();
    LoadCustomLinks();
    ReadFlags();
    CheckClub();
    if (Text("First").isEmpty()) {
        m_state.firstStart = true;
        attempt([this] { m_settings.SaveSetting("Settings", "First", "OK"); });
    }
    ChooseFirstPage();
    m_state.activeEdge = Flag(kSettingsSection, "ActiveEdge");
    if (m_state.activeEdge)
        m_edges->Apply();
    ShowTickerStrip();
    m_state.streamLogin = Text("MNL");
    m_state.streamPassword = Text("MNP");
    m_links->EnableLinks();
    m_portfolios->SelectPortfolio(Number(kSettingsSection, "TickerList"));
    attempt([this] { SeedFirstStart(); });
    m_strip->Start();
    m_form->show();
    m_reminders->CheckReminders();
    m_form->txtStock->setFocus();
    m_timers->Start();
    // The first page does not wait for the lists of the menus.
    QTimer::singleShot(0, m_lists, [this] { FillServerLists(); });
    if (!problem.empty())
        m_setup.prompts.Message(ToQt(problem), MessageTitle());
    ReportDamagedSettings();
    TellOfTables();
}

void Session::ApplyProxy() {
    const QString proxy = Text("Firewall");
    if (!proxy.isEmpty()) {
        m_tmNet->SetProxy(proxy);
        m_spooNet->SetProxy(proxy);
        m_inet->SetProxy(proxy);
        if (m_live)
            m_live->SetProxy(proxy);
    }
    if (Number(kSettingsSection, "PROXY") == 1) {
        m_tmNet->SetAccessType(ProxySetting::kNamedProxy);
        m_spooNet->SetAccessType(ProxySetting::kNamedProxy);
        m_inet->SetAccessType(ProxySetting::kNamedProxy);
        if (m_live)
            m_live->SetAccessType(ProxySetting::kNamedProxy);
    }
}

void Session::RestoreWindow() {
    try {
        LoadFormPosition(*m_form, m_settings);
    } catch (const RuntimeError&) {
        // The report of damaged settings names every such value.
    }
    m_form->SetPanels(Number("frmMain", "LeftWidth"), Number("frmMain", "RightWidth"),
                      Flag("frmMain", "LeftFolded"), Flag("frmMain", "RightFolded"));
}

void Session::ShowPortfolioLabels() {
    const bool shown = Flag(kSettingsSection, "PortLabels");
    m_form->menus->mnuPortOpt[3]->setChecked(shown);
    m_form->lblPort->setVisible(shown);
}

void Session::LoadCustomLinks() {
    for (int slot = kFirstCustom; slot <= kLastCustom; ++slot)
        m_form->ShowCustomLink(LoadCustomLink(m_settings, slot), slot);
}

void Session::FillServerLists() {
    const QPointer<frmMain> alive(m_form.get());
    m_lists->GetNewSites();
    if (alive)
        m_lists->GetBooks();
}

void Session::ReadFlags() {
    m_state.clubMember = Flag(kSettingsSection, "SAVersion");
    m_state.toolTips = Flag(kSettingsSection, "Tips");
    m_form->SetToolTips(m_state.toolTips);
}

void Session::CheckClub() {
    if (!m_state.clubMember)
        return;
    const QPointer<frmMain> alive(m_form.get());
    const QString members = ToQt(m_setup.tables.sites.Address("club_members", "/members/"));
    m_form->Web->Navigate(members);
    m_form->Web->WaitWhileBusy();
    if (!alive)
        return;
    const QByteArray page = m_tmNet->OpenURL(members);
    if (!alive)
        return;
    if (page.contains("401 Authorization Required"))
        m_setup.prompts.Message(
            u"Sorry, your login information for Society Anonyme was incorrect. If you wish to try "
            "again, u must restart Tallowmere, otherwise uncheck the Societe Anonyme box in setup "
            "if you are not a member."_s,
            MessageTitle());
    else
        m_form->lbllink[kClubLink]->SetCaption(u"Discussion Groups"_s);
}

void Session::ChooseFirstPage() {
    const QString page = Text("DefaultWeb");
    if (page.isEmpty()) {
        if (!m_state.clubMember)
            m_form->Web->Navigate(
                ToQt(m_setup.tables.sites.Address("quote_server", DetailedIndexQuery())));
        return;
    }
    if (page.startsWith(u'B')) {
        m_panes->ShowSecond();
        m_form->WebB->Navigate(page.mid(1));
    } else {
        m_panes->ShowFirst();
        m_form->Web->Navigate(page.mid(1));
    }
}

void Session::ShowTickerStrip() {
    if (Flag(kSettingsSection, "WSCTick"))
        m_ticker->Show(true);
}

void Session::SeedFirstStart() {
    if (!m_state.firstStart || m_state.currentPortfolio != 1 || m_form->List1->Count() > 0)
        return;
    m_form->List1->AddItems({u"AOL"_s, u"YHOO"_s, u"MSFT"_s});
    m_portfolios->SaveCurrentList();
}

// A damaged setting never keeps the program from starting: one message names them all.
void Session::ReportDamagedSettings() {
    QString lines;
    for (const SettingProblem& problem : CheckSettings(m_settings))
        lines += u'\n' + ToQt(problem.key) + u" = "_s + ToQt(problem.value) + u" ("_s +
                 ToQt(problem.problem) + u')';
    if (!lines.isEmpty())
        m_setup.prompts.Message(u"These settings hold no usable value; their defaults are used:"_s +
                                    lines,
                                MessageTitle());
}

bool Session::Flag(std::string_view section, std::string_view key) const {
    return ToBoolean(UsableSetting(m_settings, section, key));
}

int Session::Number(std::string_view section, std::string_view key) const {
    return ToInteger(UsableSetting(m_settings, section, key));
}

QString Session::Text(std::string_view key) const {
    return ToQt(UsableSetting(m_settings, kSettingsSection, key));
}

void Session::SaveWindow() {
    m_settings.SaveSetting("frmMain", "LeftWidth", std::to_string(m_form->LeftWidth()));
    m_settings.SaveSetting("frmMain", "RightWidth", std::to_string(m_form->RightWidth()));
    m_settings.SaveSetting("frmMain", "LeftFolded", FromBoolean(m_form->LeftFolded()));
    m_settings.SaveSetting("frmMain", "RightFolded", FromBoolean(m_form->RightFolded()));
}

void Session::Close() {
    for (QTimer* timer : {&m_strip->Timer1, &m_timers->Timer2, &m_timers->Timer3, &m_edges->timAE})
        timer->stop();
    for (TransferControl* control : {m_tmNet.get(), m_spooNet.get()})
        control->Cancel();
    m_inet->CancelAll();
    if (m_live)
        m_live->Save();
    try {
        m_settings.SaveSetting("Settings", "TickerList", std::to_string(m_state.currentPortfolio));
        SaveFormPosition(*m_form, m_settings);
    } catch (const RuntimeError& error) {
        // The program ends all the same, with every other window.
        m_setup.prompts.Message(ToQt(error.what()), MessageTitle());
    }
    QCoreApplication::quit();
}

void Session::SendAll(const QString& site) {
    m_links->SendAll(site);
}

void Session::Raise() {
    // While the start is still waiting for the club there is nothing to work with yet.
    if (m_state.currentPortfolio == 0)
        return;
    m_form->setWindowState((m_form->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

} // namespace tallowmere
