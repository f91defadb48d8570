#pragma once

namespace tallowmere {

class Backups;
class Clock;
class DatedCopies;
class PaneDeck;
class Prompts;
class SettingsStore;
class UndoRecorder;
class frmMain;
struct StorePlaces;

/// The controllers of backups and of the copies that the program makes by itself. The form owns
/// them.
struct BackupControllers {
    BackupControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
                      const Clock& clock, const StorePlaces& places, PaneDeck& panes);

    Backups* backups;
    DatedCopies* copies;
};

} // namespace tallowmere
