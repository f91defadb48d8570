#include "app/market/MarketControllers.h"

#include "app/base/Transfers.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkControllers.h"
#include "app/market/ActiveEdges.h"
#include "app/market/AlertWindow.h"
#include "app/market/ClubLogin.h"
#include "app/market/IndexStrip.h"
#include "app/market/PriceAlerts.h"
#include "app/market/TickerStrip.h"
#include "app/market/Timers.h"
#include "app/market/WatchWindows.h"

namespace tallowmere {

MarketControllers::MarketControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                                     const SiteTable& sites, Prompts& prompts, const Clock& clock,
                                     const std::filesystem::path& programFolder,
                                     EngineProfile& profile, LinkControllers& links,
                                     Transfers& transfers)
    : strip(new IndexStrip(form, sites, clock, *links.panes, transfers.spooNet)),
      edges(new ActiveEdges(form, settings, *links.panes, *links.panel, *links.popups)),
      watches(new WatchWindows(form, settings, prompts, clock, profile, *links.dispatch)),
      timers(new Timers(form, settings, sites, transfers.tmNet, *links.dispatch)),
      ticker(new TickerStrip(form, settings, sites)),
      club(new ClubLogin(form, sites, prompts, links.accounts, transfers.tmNet)),
      alerts(new PriceAlerts(undo, prompts, clock, programFolder, &form)),
      alertWindow(new AlertWindow(form, *alerts, *links.panes)) {}

void MarketControllers::Stop() {
    for (QTimer* timer : {&strip->Timer1, &timers->Timer2, &timers->Timer3, &edges->timAE})
        timer->stop();
}

} // namespace tallowmere
