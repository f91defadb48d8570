#pragma once

#include "core/text/date.h"

#include <QObject>
#include <QTimer>

#include <filesystem>

namespace tallowmere {

class Clock;
class DailyReminders;
class DesktopNotice;
class PaneDeck;
class frmMain;

/// Tells of reminders that come due while the program runs: when a day begins, and when the machine
/// wakes up on another day than it fell asleep. One timer waits for midnight; it stands still while
/// the machine sleeps, so the clock is looked at again when that wakes up and when somebody comes
/// back to the program.
class ReminderWatch : public QObject {
    Q_OBJECT
public:
    ReminderWatch(frmMain& form, const Clock& clock, std::filesystem::path programFolder,
                  DailyReminders& reminders, PaneDeck& panes);

    /// Begins to watch; what is due today was told by the start.
    void Start();

    /// Tells what came due since the day that was looked at last.
    void Look();

    const QTimer& Midnight() const { return m_midnight; }
    DesktopNotice& Notice() { return *m_notice; }

private Q_SLOTS:
    /// The system says that it is about to sleep, or has woken up.
    void Sleeps(bool begins);

private:
    void Await();
    void Tell(const QString& words);
    void OpenReminders();

    frmMain& m_form;
    const Clock& m_clock;
    std::filesystem::path m_programFolder;
    DailyReminders& m_reminders;
    PaneDeck& m_panes;
    DesktopNotice* m_notice;
    QTimer m_midnight;
    Date m_lookedAt{};
};

} // namespace tallowmere
