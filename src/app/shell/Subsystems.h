#pragma once

#include "app/backup/BackupControllers.h"
#include "app/custom/CustomControllers.h"
#include "app/links/LinkControllers.h"
#include "app/market/MarketControllers.h"
#include "app/portfolio/PortfolioControllers.h"
#include "app/sites/SiteControllers.h"
#include "app/tools/ToolControllers.h"

namespace tallowmere {

class EngineProfile;
class Finder;
class KeptSession;
class UndoCommands;
class UndoRecorder;
class UserSites;
class WebAccess;
struct SessionSetup;
struct Transfers;

/// The controllers of all subsystems, each wired in its own folder, and what passes between them.
struct Subsystems {
    Subsystems(const SessionSetup& setup, frmMain& form, SettingsStore& settings,
               UndoRecorder& undo, WebAccess& web, EngineProfile& profile, Transfers& transfers,
               UserSites& userSites);

    LinkControllers links;
    PortfolioControllers portfolio;
    CustomControllers custom;
    MarketControllers market;
    ToolControllers tools;
    SiteControllers* sites;
    UndoCommands* undo;
    BackupControllers backup;
    KeptSession* kept;
    Finder* finder;

private:
    void ConnectAlerts() const;
    FinderSources AllFinderSources(frmMain& form, const WebAccess& web) const;
};

} // namespace tallowmere
