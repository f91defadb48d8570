#include "app/shell/Subsystems.h"

#include "app/backup/Backups.h"
#include "app/backup/DatedCopies.h"
#include "app/base/Transfers.h"
#include "app/custom/MultiLinks.h"
#include "app/engine/DownloadList.h"
#include "app/engine/EngineProfile.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/links/SeparateBrowser.h"
#include "app/market/ActiveEdges.h"
#include "app/market/AlertWindow.h"
#include "app/market/PriceAlerts.h"
#include "app/market/TickerStrip.h"
#include "app/portfolio/ListQuotes.h"
#include "app/portfolio/PortfolioTable.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerMarks.h"
#include "app/shell/Finder.h"
#include "app/shell/FinderCommands.h"
#include "app/shell/KeptSession.h"
#include "app/shell/SessionSetup.h"
#include "app/shell/UndoCommands.h"
#include "app/tools/ColorConfig.h"
#include "app/tools/Setup.h"

namespace tallowmere {

Subsystems::Subsystems(const SessionSetup& setup, frmMain& form, SettingsStore& settings,
                       UndoRecorder& undoRecorder, WebAccess& web, EngineProfile& profile,
                       Transfers& transfers, UserSites& userSites)
    : links(form, settings, undoRecorder, setup.tables.sites, setup.tables.menus, web,
            setup.prompts, setup.clock, setup.folders.programFolder, transfers),
      portfolio(form, settings, undoRecorder, setup.tables.sites, setup.prompts, setup.clock,
                setup.folders.programFolder, links, transfers.inet),
      custom(form, settings, undoRecorder, setup.tables.sites, setup.prompts,
             setup.folders.programFolder, profile, links),
      market(form, settings, undoRecorder, setup.tables.sites, setup.prompts, setup.clock,
             setup.folders.programFolder, profile, links, transfers),
      tools(form, settings, undoRecorder, setup.tables.sites, setup.prompts, setup.clock,
            setup.folders.programFolder, profile, links),
      sites(new SiteControllers(form, settings, setup.prompts, setup.clock, links.recording,
                                setup.tables, userSites, web, profile, *links.panes)),
      undo(new UndoCommands(form, undoRecorder, setup.prompts, *links.panes)),
      backup(form, settings, undoRecorder, setup.prompts, setup.clock, setup.folders.Stores(),
             *links.panes),
      kept(new KeptSession(form, settings, *links.tabs, *market.watches)),
      finder(new Finder(form, setup.clock, setup.folders.programFolder, *links.panes, *links.panel,
                        *links.dispatch, *portfolio.portfolios,
                        [this, &form, &web] { return AllFinderSources(form, web); })) {
    QObject::connect(&profile, &EngineProfile::MailWanted, links.outside,
                     &SeparateBrowser::WriteMail);
    QObject::connect(&profile.Downloads(), &DownloadList::Status, links.panes,
                     &PaneDeck::ShowLastingStatus);
    QObject::connect(tools.colors, &ColorConfig::Applied, portfolio.portfolios,
                     &Portfolios::PaintNumbers);
    QObject::connect(tools.colors, &ColorConfig::Applied, &form,
                     [&web](PageScheme pages) { web.SetScheme(pages); });
    QObject::connect(custom.multiLinks, &MultiLinks::ColorsLost, tools.colors, &ColorConfig::Apply);
    QObject::connect(undo, &UndoCommands::Changed, portfolio.marks, &TickerMarks::Refresh);
    QObject::connect(undo, &UndoCommands::Changed, portfolio.table, &PortfolioTable::ReloadSoon);
    QObject::connect(undo, &UndoCommands::AboutToUndo, portfolio.portfolios,
                     &Portfolios::SaveUnwritten);
    QObject::connect(undo, &UndoCommands::Changed, backup.copies, &DatedCopies::NoteChange);
    QObject::connect(undo, &UndoCommands::Restored, backup.backups, &Backups::Restored);
    QObject::connect(backup.backups, &Backups::AboutToRead, portfolio.portfolios,
                     &Portfolios::SaveUnwritten);
    QObject::connect(backup.backups, &Backups::Restored, portfolio.portfolios, &Portfolios::Reload);
    QObject::connect(backup.backups, &Backups::Restored, portfolio.table,
                     &PortfolioTable::ReloadSoon);
    QObject::connect(backup.backups, &Backups::Restored, tools.colors, [this, &form, &settings] {
        ForgetCustomLinks(form);
        tools.colors->Apply();
        ShowCustomLinks(form, settings);
    });
    ConnectAlerts();
    QObject::connect(tools.setup, &Setup::TickerSwitched, market.ticker, &TickerStrip::Switch);
    QObject::connect(tools.setup, &Setup::EdgesSwitched, market.edges, &ActiveEdges::Switch);
}

void Subsystems::ConnectAlerts() const {
    portfolio.marks->SetAlerts([window = market.alertWindow](const std::string& ticker) {
        return window->MarkOf(ticker);
    });
    QObject::connect(market.alerts, &PriceAlerts::Changed, portfolio.marks, &TickerMarks::Refresh);
    QObject::connect(portfolio.listQuotes, &ListQuotes::Begun, market.alerts, &PriceAlerts::Begin);
    QObject::connect(portfolio.portfolios, &Portfolios::Selected, market.alerts,
                     &PriceAlerts::Refresh);
    QObject::connect(undo, &UndoCommands::Changed, market.alerts, &PriceAlerts::Refresh);
    QObject::connect(backup.backups, &Backups::Restored, market.alerts, &PriceAlerts::Refresh);
}

// Those of a kind are shown in this order.
FinderSources Subsystems::AllFinderSources(frmMain& form, const WebAccess& web) const {
    FinderSources all;
    const auto add = [&all](FinderSources made) {
        std::move(made.begin(), made.end(), std::back_inserter(all));
    };
    add(links.makeFinderSources(web));
    add(custom.makeFinderSources(web));
    all.push_back(std::make_unique<FinderCommands>(form));
    add(portfolio.makeFinderSources(web));
    add(tools.makeFinderSources(web));
    return all;
}

} // namespace tallowmere
