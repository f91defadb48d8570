#pragma once

#include "app/base/Folders.h"
#include "app/base/MainState.h"
#include "app/base/Services.h"
#include "app/base/WebAccess.h"
#include "app/shell/CommandLine.h"
#include "app/sites/Tables.h"
#include "core/quotes/source_table.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tallowmere {

class ActiveEdges;
class ColorConfig;
class CustomEditor;
class DailyReminders;
class EngineProfile;
class frmMain;
class Help;
class IndexStrip;
class LinkDispatch;
class LinkPanel;
class LiveQuotes;
class MultiLinks;
class PaneDeck;
class PortfolioCommands;
class Portfolios;
class QuoteMenus;
class QuotePage;
class Reports;
class SeparateBrowser;
class ServerLists;
class Setup;
class SiteEditor;
class SitePopups;
class SmartNavigate;
class TickerBox;
class TickerImport;
class TickerStrip;
class Timers;
class TransferControl;
class TransferPool;
class UserSites;
class WatchWindows;

/// What a session is started with.
struct SessionSetup {
    Folders folders;
    WebMode web = WebMode::Direct;
    Tables& tables; ///< change when the user's own table of sites does
    /// The built-in portal of the sample mode.
    WebAccess::PortalFunction portal;
    Prompts& prompts;
    const Clock& clock;
    /// Only the live mode has these: where quotes come from, and the pages that its portal hands
    /// out as they are.
    SourceTable sources = {};
    PortalTexts texts = {};
};

/// One run of the program: owns the main window, what it works with and the controllers, and takes
/// them through the start and the close.
class Session : public QObject {
    Q_OBJECT
public:
    explicit Session(SessionSetup setup);
    ~Session() override;

    /// Runs the start sequence and shows the window.
    void Start();

    /// Brings the window to the front.
    void Raise();

    /// Opens one page of `site` for all tickers of the list.
    void SendAll(const QString& site);

    frmMain& Form() { return *m_form; }
    MainState& State() { return m_state; }
    SettingsStore& Settings() { return m_settings; }
    IndexStrip& Strip() { return *m_strip; }
    LinkDispatch& Dispatch() { return *m_dispatch; }
    SitePopups& Popups() { return *m_popups; }
    CustomEditor& Editor() { return *m_editor; }
    MultiLinks& Recording() { return *m_multiLinks; }
    DailyReminders& Reminders() { return *m_reminders; }
    TickerImport& Import() { return *m_import; }
    WatchWindows& Watches() { return *m_watches; }
    ActiveEdges& Edges() { return *m_edges; }
    Timers& ClubAndRefresh() { return *m_timers; }
    ServerLists& Lists() { return *m_lists; }
    ColorConfig& Colors() { return *m_colors; }
    SiteEditor& Sites() { return *m_siteEditor; }
    UserSites& OwnSites() { return *m_userSites; }

private:
    void ConnectPortal();
    void Connect();
    void ConnectTools();
    void LeadAddresses();
    void TellOfTables();
    void ApplyProxy();
    void RestoreWindow();
    void ShowPortfolioLabels();
    void LoadCustomLinks();
    void ReadFlags();
    void CheckClub();
    void ChooseFirstPage();
    void ShowTickerStrip();
    void FillServerLists();
    void SeedFirstStart();
    void ReportDamagedSettings();
    void Close();

    bool Flag(std::string_view section, std::string_view key) const;
    int Number(std::string_view section, std::string_view key) const;
    QString Text(std::string_view key) const;
    void SaveWindow();

    SessionSetup m_setup;
    std::unique_ptr<UserSites> m_userSites;
    SettingsStore m_settings;
    Services m_services;
    MainState m_state;
    std::unique_ptr<WebAccess> m_web;
    std::unique_ptr<LiveQuotes> m_live; ///< null but in live mode
    std::unique_ptr<EngineProfile> m_profile;
    std::unique_ptr<TransferControl> m_tmNet;
    std::unique_ptr<TransferControl> m_spooNet;
    std::unique_ptr<TransferPool> m_inet;
    std::unique_ptr<frmMain> m_form;
    // Controllers; the form owns them.
    SeparateBrowser* m_outside = nullptr;
    PaneDeck* m_panes = nullptr;
    Portfolios* m_portfolios = nullptr;
    TickerBox* m_tickers = nullptr;
    LinkDispatch* m_dispatch = nullptr;
    LinkPanel* m_links = nullptr;
    SitePopups* m_popups = nullptr;
    IndexStrip* m_strip = nullptr;
    ActiveEdges* m_edges = nullptr;
    ColorConfig* m_colors = nullptr;
    DailyReminders* m_reminders = nullptr;
    TickerImport* m_import = nullptr;
    WatchWindows* m_watches = nullptr;
    PortfolioCommands* m_portfolioCommands = nullptr;
    QuotePage* m_quotePage = nullptr;
    QuoteMenus* m_quoteMenus = nullptr;
    Reports* m_reports = nullptr;
    CustomEditor* m_editor = nullptr;
    MultiLinks* m_multiLinks = nullptr;
    Timers* m_timers = nullptr;
    TickerStrip* m_ticker = nullptr;
    ServerLists* m_lists = nullptr;
    SmartNavigate* m_navigate = nullptr;
    Help* m_help = nullptr;
    Setup* m_setupDialog = nullptr;
    SiteEditor* m_siteEditor = nullptr;
};

} // namespace tallowmere
