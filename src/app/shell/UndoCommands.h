#pragma once

#include "core/shell/undo_history.h"

#include <QObject>

namespace tallowmere {

class PaneDeck;
class Prompts;
class UndoRecorder;
class frmMain;

/// Undo and Redo: their captions, the bar that offers to bring back what was removed, and taking
/// steps back and doing them again.
class UndoCommands : public QObject {
    Q_OBJECT
public:
    UndoCommands(frmMain& form, UndoRecorder& undo, Prompts& prompts, PaneDeck& panes);
    ~UndoCommands() override;

    /// Takes the last step back, or does the next one again; does nothing when there is none.
    void Go(UndoDirection direction);

    UndoRecorder& Recorder() { return m_undo; }

Q_SIGNALS:
    /// A command has changed the stores, was taken back or done again.
    void Changed();
    /// A step is about to be taken back: what is shown but not written yet has to be.
    void AboutToUndo();
    /// The stores hold something else than what is shown.
    void Restored();

private:
    void Recorded(const UndoStep* step);
    void SetCaptions();
    void TellProblem();

    frmMain& m_form;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    PaneDeck& m_panes;
};

} // namespace tallowmere
