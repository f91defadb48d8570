#pragma once

#include <filesystem>

namespace tallowmere {

class ActiveEdges;
class AlertWindow;
class Clock;
class ClubLogin;
class EngineProfile;
class IndexStrip;
class PriceAlerts;
class Prompts;
class SettingsStore;
class SiteTable;
class TickerStrip;
class Timers;
class UndoRecorder;
class WatchWindows;
class frmMain;
struct LinkControllers;
struct Transfers;

/// The controllers of all that follows the market or runs by a timer, connected to the links below
/// them. The form owns the controllers.
struct MarketControllers {
    MarketControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                      const SiteTable& sites, Prompts& prompts, const Clock& clock,
                      const std::filesystem::path& programFolder, EngineProfile& profile,
                      LinkControllers& links, Transfers& transfers);

    IndexStrip* strip;
    ActiveEdges* edges;
    WatchWindows* watches;
    Timers* timers;
    TickerStrip* ticker;
    ClubLogin* club;
    PriceAlerts* alerts;
    AlertWindow* alertWindow;

    /// Stops the timers: the window closes.
    void Stop();
};

} // namespace tallowmere
