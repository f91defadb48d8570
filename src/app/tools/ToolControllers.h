#pragma once

#include "app/base/FinderSource.h"

#include <filesystem>

namespace tallowmere {

class Clock;
class ColorConfig;
class ColorSettings;
class DailyReminders;
class DownloadWindow;
class EngineNotice;
class EngineProfile;
class Prompts;
class ReminderWatch;
class SettingsStore;
class Setup;
class ShortcutEditor;
class SiteTable;
class UndoRecorder;
class frmMain;
struct LinkControllers;

/// The controllers of colours, setup, shortcuts, reminders, downloads and help, connected to each
/// other and to the links below them. The form owns the controllers.
struct ToolControllers {
    ToolControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                    const SiteTable& sites, Prompts& prompts, const Clock& clock,
                    const std::filesystem::path& programFolder, EngineProfile& profile,
                    LinkControllers& links);

    ColorConfig* colors;
    ColorSettings* colorSettings;
    DailyReminders* reminders;
    ReminderWatch* dueReminders;
    DownloadWindow* downloads;
    EngineNotice* engine;
    Setup* setup;
    ShortcutEditor* shortcuts;
    MakeFinderSources makeFinderSources;
};

} // namespace tallowmere
