#include "app/portfolio/PortfolioControllers.h"

#include "app/forms/frmMain.h"
#include "app/links/LinkControllers.h"
#include "app/links/LinkDispatch.h"
#include "app/portfolio/CsvCommands.h"
#include "app/portfolio/FinderPortfolios.h"
#include "app/portfolio/ListColumns.h"
#include "app/portfolio/ListOrder.h"
#include "app/portfolio/ListQuotes.h"
#include "app/portfolio/PortfolioCommands.h"
#include "app/portfolio/PortfolioTable.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/QuoteMenus.h"
#include "app/portfolio/QuotePage.h"
#include "app/portfolio/Reports.h"
#include "app/portfolio/TickerBox.h"
#include "app/portfolio/TickerCompletion.h"
#include "app/portfolio/TickerImport.h"
#include "app/portfolio/TickerMarks.h"

namespace tallowmere {

PortfolioControllers::PortfolioControllers(frmMain& form, SettingsStore& settings,
                                           UndoRecorder& undo, const SiteTable& sites,
                                           Prompts& prompts, const Clock& clock,
                                           const std::filesystem::path& programFolder,
                                           LinkControllers& links, TransferPool& transfers)
    : portfolios(new Portfolios(form, settings, undo, prompts, programFolder)),
      tickers(new TickerBox(form, undo, prompts, programFolder, *portfolios, *links.dispatch,
                            *links.panes)),
      completion(new TickerCompletion(form, *tickers)),
      marks(new TickerMarks(form, portfolios->List(), programFolder)),
      columns(new ListColumns(form, settings)),
      listQuotes(new ListQuotes(form, portfolios->List())),
      quotes(new QuotePage(form, settings, sites, *links.panes, transfers)),
      reports(new Reports(form, settings, sites, prompts, clock, programFolder, *links.panes)),
      import(new TickerImport(form, prompts, *portfolios, *links.panes, transfers)),
      table(new PortfolioTable(form, settings, prompts, clock, programFolder, *portfolios,
                               *links.dispatch, *links.panel)) {
    new ListOrder(form, *portfolios, *tickers, *links.panes);
    new PortfolioCommands(form, settings, undo, prompts, *portfolios);
    new CsvCommands(form, settings, undo, prompts, programFolder, *portfolios, *links.panes);
    auto* menus =
        new QuoteMenus(form, settings, sites, *portfolios, *links.panes, *links.panel, *quotes);
    QObject::connect(columns, &ListColumns::Changed, listQuotes, &ListQuotes::FollowColumns);
    QObject::connect(portfolios, &Portfolios::Selected, marks, &TickerMarks::Refresh);
    QObject::connect(links.dispatch, &LinkDispatch::PortfolioMenuRequested, menus,
                     &QuoteMenus::PopUp);
    makeFinderSources = [&form, programFolder, dispatch = links.dispatch, panel = links.panel,
                         this](const WebAccess&) {
        FinderSources made;
        made.push_back(std::make_unique<FinderPortfolios>(form, programFolder, *portfolios,
                                                          *tickers, *marks, *dispatch, *panel));
        return made;
    };
}

} // namespace tallowmere
