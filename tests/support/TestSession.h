#pragma once

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/portfolio/PortfolioControllers.h"
#include "app/shell/Session.h"
#include "app/shell/Subsystems.h"
#include "core/sites/site_table.h"
#include "support/TestClock.h"
#include "support/TestPrompts.h"

#include <QTemporaryDir>
#include <QTest>

namespace tallowmere {

/// A session with short ways to the controllers that tests look at.
class TestedSession : public Session {
public:
    using Session::Session;

    RecordingState& Recorded() { return Controllers().links.recording; }
    Accounts& UserAccounts() { return Controllers().links.accounts; }
    PaneDeck& Panes() { return *Controllers().links.panes; }
    LinkDispatch& Dispatch() { return *Controllers().links.dispatch; }
    LinkPanel& Panel() { return *Controllers().links.panel; }
    SitePopups& Popups() { return *Controllers().links.popups; }
    PagePrinting& Printing() { return *Controllers().links.printing; }
    ServerLists& Lists() { return *Controllers().links.lists; }
    Portfolios& Ports() { return *Controllers().portfolio.portfolios; }
    QuotePage& Quotes() { return *Controllers().portfolio.quotes; }
    PortfolioTable& Table() { return *Controllers().portfolio.table; }
    TickerImport& Import() { return *Controllers().portfolio.import; }
    CustomEditor& Editor() { return *Controllers().custom.editor; }
    CustomMenu& SlotMenu() { return *Controllers().custom.menu; }
    MultiLinks& Recording() { return *Controllers().custom.multiLinks; }
    IndexStrip& Strip() { return *Controllers().market.strip; }
    WatchWindows& Watches() { return *Controllers().market.watches; }
    ActiveEdges& Edges() { return *Controllers().market.edges; }
    Timers& ClubAndRefresh() { return *Controllers().market.timers; }
    TickerStrip& Ticker() { return *Controllers().market.ticker; }
    ColorConfig& Colors() { return *Controllers().tools.colors; }
    ShortcutEditor& Shortcuts() { return *Controllers().tools.shortcuts; }
    DailyReminders& Reminders() { return *Controllers().tools.reminders; }
    SiteEditor& Sites() { return *Controllers().sites->editor; }
};

/// A session on a fresh profile, with scripted answers and a clock that stands. All sites lie on
/// one host; in sample mode every page is answered by `portal`.
class TestSession {
public:
    explicit TestSession(const QString& host = QStringLiteral("h.example"),
                         WebMode mode = WebMode::Sample)
        : m_host(host), m_mode(mode), m_settings(ToPath(m_folder.path()) / "settings.ini") {}

    TestPrompts prompts;
    TestClock clock;
    std::string programs; ///< further text of the table of sites
    std::string today;    ///< the tables [links] and [menus] of the table of sites
    MenuTable menus;      ///< where the fixed items of the site menus lead; nowhere at first
    QStringList asked;    ///< addresses that the portal was asked for
    /// What a session in live mode works with besides.
    SourceTable sources;
    PortalTexts portalTexts;
    /// The invented prices of a session in sample mode; none unless the test says them.
    std::function<std::optional<ListedPrice>(const std::string&)> prices;
    /// What the built-in portal answers; a plain page unless the test says otherwise.
    std::function<PortalAnswer(const std::string&, const std::string&)> portal =
        [](const std::string&, const std::string&) {
            return PortalAnswer{"text/html", "<html><body>page</body></html>"};
        };

    /// The settings as they are on disk, before or after a start.
    SettingsStore& Settings() { return m_settings; }
    std::filesystem::path Folder() const { return ToPath(m_folder.path()); }
    /// Where what ships with the program would lie; empty unless the test puts something there.
    std::filesystem::path Data() const { return Folder() / "data"; }

    /// Makes the session and runs its start sequence. Called again it starts anew on the same
    /// profile.
    TestedSession& Start() {
        m_session.reset();
        Folders folders;
        folders.settingsFile = Folder() / "settings.ini";
        folders.programFolder = Folder();
        folders.engine = Folder() / "engine";
        folders.tables = Folder();
        folders.data = Data();
        const auto answer = [this](const std::string& host, const std::string& path) {
            asked << ToQt(host + path);
            return portal(host, path);
        };
        const std::string sites = "[hosts]\ndefault = \"" + FromQt(m_host) + "\"\n" + programs;
        m_tables = {
            SiteTable::Parse(sites, "sites.toml"), menus, ReadTodayTable(today, "sites.toml"), {}};
        m_session.reset(new TestedSession(
            {folders, m_mode, m_tables, answer, prompts, clock, sources, portalTexts, prices}));
        m_session->Start();
        return *m_session;
    }

    /// Ends the run: the window and all that belongs to it are gone.
    void End() { m_session.reset(); }

    TestedSession& operator*() { return *m_session; }
    TestedSession* operator->() { return m_session.get(); }
    frmMain& Form() { return m_session->Form(); }
    Chip* Link(int index) { return Form().lbllink.at(static_cast<std::size_t>(index)); }

    /// A stored value of section "Settings".
    QString Stored(const char* key) const {
        return ToQt(m_settings.GetSetting("Settings", key, "<absent>"));
    }
    void Store(const char* key, const char* value) {
        m_settings.SaveSetting("Settings", key, value);
    }

    /// Clicks a link with the left button.
    void ClickLink(int index) { QTest::mouseClick(Link(index), Qt::LeftButton); }

    /// Types a line into the entry box and presses Enter.
    void Enter(const QString& text) {
        Form().txtStock->setFocus();
        Form().txtStock->clear();
        QTest::keyClicks(Form().txtStock, text);
        QTest::keyClick(Form().txtStock, Qt::Key_Return);
    }

private:
    QTemporaryDir m_folder;
    QString m_host;
    WebMode m_mode;
    SettingsStore m_settings;
    Tables m_tables;
    std::unique_ptr<TestedSession> m_session;
};

} // namespace tallowmere
