#pragma once

#include "app/base/FinderSource.h"
#include "app/links/Accounts.h"
#include "app/links/RecordingState.h"

#include <filesystem>

namespace tallowmere {

class Clock;
class FullScreen;
class LinkDispatch;
class LinkPanel;
class MenuTable;
class PagePrinting;
class PaneDeck;
class PaneTabs;
class Prompts;
class SeparateBrowser;
class ServerLists;
class SettingsStore;
class SitePopups;
class SiteTable;
class SmartNavigate;
class UndoRecorder;
class WebAccess;
class frmMain;
struct Transfers;

/// The controllers of the links and the panes, connected to each other, and what they share with
/// the subsystems above them. The form owns the controllers.
struct LinkControllers {
    LinkControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                    const SiteTable& sites, const MenuTable& menus, const WebAccess& web,
                    Prompts& prompts, const Clock& clock,
                    const std::filesystem::path& programFolder, Transfers& transfers);

    RecordingState recording;
    Accounts accounts;
    SeparateBrowser* outside;
    PaneDeck* panes;
    PaneTabs* tabs;
    FullScreen* fullScreen;
    LinkDispatch* dispatch;
    LinkPanel* panel;
    SitePopups* popups;
    ServerLists* lists;
    SmartNavigate* navigate;
    PagePrinting* printing;
    MakeFinderSources makeFinderSources;
};

} // namespace tallowmere
