#include "app/portfolio/PortfolioControllers.h"

#include "app/forms/frmMain.h"
#include "app/links/LinkControllers.h"
#include "app/links/LinkDispatch.h"
#include "app/portfolio/PortfolioCommands.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/QuoteMenus.h"
#include "app/portfolio/QuotePage.h"
#include "app/portfolio/Reports.h"
#include "app/portfolio/TickerBox.h"
#include "app/portfolio/TickerImport.h"

namespace tallowmere {

PortfolioControllers::PortfolioControllers(frmMain& form, SettingsStore& settings,
                                           const SiteTable& sites, Prompts& prompts,
                                           const Clock& clock,
                                           const std::filesystem::path& programFolder,
                                           LinkControllers& links, TransferPool& transfers)
    : portfolios(new Portfolios(form, settings, prompts, programFolder)),
      tickers(new TickerBox(form, prompts, programFolder, *portfolios, *links.dispatch)),
      quotes(new QuotePage(form, settings, sites, *links.panes, transfers)),
      reports(new Reports(form, settings, sites, prompts, clock, programFolder, *links.panes)),
      import(new TickerImport(form, prompts, *portfolios, *links.panes, transfers)) {
    new PortfolioCommands(form, settings, prompts, *portfolios);
    auto* menus =
        new QuoteMenus(form, settings, sites, *portfolios, *links.panes, *links.panel, *quotes);
    QObject::connect(links.dispatch, &LinkDispatch::PortfolioMenuRequested, menus,
                     &QuoteMenus::PopUp);
}

} // namespace tallowmere
