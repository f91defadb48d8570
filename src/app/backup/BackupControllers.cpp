#include "app/backup/BackupControllers.h"

#include "app/backup/Backups.h"
#include "app/backup/DatedCopies.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"

namespace tallowmere {

BackupControllers::BackupControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                                     Prompts& prompts, const Clock& clock,
                                     const StorePlaces& places, PaneDeck& panes)
    : backups(new Backups(form, settings, undo, prompts, clock, places, panes)),
      copies(new DatedCopies(form, clock, places)) {
    QObject::connect(copies, &DatedCopies::Failed, &panes, &PaneDeck::ShowLastingStatus);
}

} // namespace tallowmere
