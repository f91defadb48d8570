#include "app/links/LinkControllers.h"

#include "app/base/Transfers.h"
#include "app/forms/frmMain.h"
#include "app/links/FinderAddresses.h"
#include "app/links/FinderHistory.h"
#include "app/links/FinderLinks.h"
#include "app/links/FullScreen.h"
#include "app/links/HistoryMenus.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/LinkSweep.h"
#include "app/links/LinkWalk.h"
#include "app/links/PagePrinting.h"
#include "app/links/PageSource.h"
#include "app/links/PaneDeck.h"
#include "app/links/PaneTabs.h"
#include "app/links/SeparateBrowser.h"
#include "app/links/ServerLists.h"
#include "app/links/SitePopups.h"
#include "app/links/SmartNavigate.h"

namespace tallowmere {

LinkControllers::LinkControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                                 const SiteTable& sites, const MenuTable& menus,
                                 const WebAccess& web, Prompts& prompts, const Clock& clock,
                                 const std::filesystem::path& programFolder, Transfers& transfers)
    : outside(new SeparateBrowser(sites, web, prompts, programFolder, &form)),
      panes(new PaneDeck(form, recording, sites, programFolder, *outside)),
      dispatch(new LinkDispatch(form, recording, accounts, settings, sites, prompts, clock, *panes,
                                transfers.inet)),
      panel(new LinkPanel(form, recording, settings, undo, sites, prompts, *dispatch, *panes)),
      popups(new SitePopups(form, sites, menus, prompts, clock, *dispatch, *panes)),
      lists(new ServerLists(sites, *panes, *popups, transfers.tmNet, &form)),
      navigate(new SmartNavigate(form, settings, *panes)),
      printing(new PagePrinting(form, prompts, clock, *panes)) {
    tabs = new PaneTabs(form, *panes);
    makeFinderSources = [&form, &settings, &sites, &menus, &clock, this](const WebAccess& access) {
        FinderSources made;
        made.push_back(std::make_unique<FinderLinks>(form, sites, menus, access, clock, *dispatch,
                                                     *panel, *popups));
        made.push_back(std::make_unique<FinderAddresses>(settings, access, *panes));
        made.push_back(std::make_unique<FinderHistory>(form, *panes));
        return made;
    };
    new HistoryMenus(form, *panes, *panel);
    new PageSource(form, *panes, *tabs);
    new LinkWalk(form, *panes, *dispatch, *panel);
    new LinkSweep(form, recording, prompts, *panes, *tabs, *dispatch, *panel);
    fullScreen = new FullScreen(form, settings, *panes);
    QObject::connect(dispatch, &LinkDispatch::NavigateRequested, navigate, &SmartNavigate::Show);
    QObject::connect(popups, &SitePopups::Held, panel, [panel = panel](bool held) {
        if (!held)
            panel->ForgetPointer();
    });
    QObject::connect(dispatch, &LinkDispatch::CalculatorRequested, outside,
                     &SeparateBrowser::StartCalculator);
}

} // namespace tallowmere
