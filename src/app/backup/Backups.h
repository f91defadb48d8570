#pragma once

#include "core/backup/restore_plan.h"

#include <QObject>

#include <functional>

namespace tallowmere {

class Clock;
class PaneDeck;
class Prompts;
class UndoRecorder;
class frmMain;

/// Back Up, Restore and Import Profile: all stores of the user to one archive, and back from one,
/// or from the folder of a profile, after a look at what would change.
class Backups : public QObject {
    Q_OBJECT
public:
    Backups(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
            const Clock& clock, StorePlaces places, PaneDeck& panes);

    /// Each asks where, and does nothing when that is cancelled.
    void BackUp();
    void RestoreBackup();
    void ImportProfile();

Q_SIGNALS:
    /// What is shown but not written yet has to be.
    void AboutToRead();
    /// The stores hold something else than what is shown.
    void Restored();

private:
    void Attempt(const std::function<void()>& command);
    void Offer(const QString& source, const BackupFiles& backup);
    void Take(const QString& source, const BackupFiles& backup, const std::set<BackupPart>& parts);
    std::string PackNow() const;

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    const Clock& m_clock;
    StorePlaces m_places;
    PaneDeck& m_panes;
};

} // namespace tallowmere
