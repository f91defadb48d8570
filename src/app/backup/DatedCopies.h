#pragma once

#include "core/backup/dated_copies.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <thread>

namespace tallowmere {

class Clock;
class frmMain;

/// Makes the dated copies of the stores: some time after the start, once the first page is there,
/// and some time after something was changed. The work is done beside the program, and is dropped
/// when the program ends before it is done.
class DatedCopies : public QObject {
    Q_OBJECT
public:
    DatedCopies(frmMain& form, const Clock& clock, StorePlaces places);
    ~DatedCopies() override;

    /// The first copy of this run becomes due.
    void Start();

    /// Something was changed: a copy becomes due, unless one is already.
    void NoteChange();

    /// Makes a copy now, unless one is being made.
    void Make();

    /// What makes the copy when it is due.
    const QTimer& Due() const { return m_due; }

Q_SIGNALS:
    void Done(tallowmere::CopyOutcome outcome);
    /// A copy could not be made; told once in a run.
    void Failed(const QString& text);

private:
    void Finish(CopyOutcome outcome, const QString& problem);
    void Await(std::chrono::milliseconds time);

    frmMain& m_form;
    const Clock& m_clock;
    StorePlaces m_places;
    QTimer m_due;
    std::thread m_worker;
    std::atomic<bool> m_isWanted = true;
    bool m_isFailureTold = false;
};

} // namespace tallowmere
