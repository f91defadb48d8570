#include "app/shell/UndoCommands.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/UndoBar.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/shell/undo_recorder.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

void SetCaption(QAction* action, const QString& verb, const UndoStep* step) {
    action->setText(u"&"_s + verb + (step ? u" "_s + MenuCaption(ToQt(step->caption)) : QString()));
    action->setEnabled(step != nullptr);
}

} // namespace

UndoCommands::UndoCommands(frmMain& form, UndoRecorder& undo, Prompts& prompts, PaneDeck& panes)
    : QObject(&form), m_form(form), m_undo(undo), m_prompts(prompts), m_panes(panes) {
    connect(form.menus->undo, &QAction::triggered, this, [this] { Go(UndoDirection::Back); });
    connect(form.menus->redo, &QAction::triggered, this, [this] { Go(UndoDirection::Forth); });
    connect(form.undoBar, &UndoBar::UndoWanted, this, [this] {
        m_form.List1->setFocus();
        Go(UndoDirection::Back);
    });
    undo.SetListener([this](const UndoStep* step) { Recorded(step); });
    SetCaptions();
    TellProblem();
}

UndoCommands::~UndoCommands() {
    m_undo.SetListener({});
}

void UndoCommands::SetCaptions() {
    SetCaption(m_form.menus->undo, u"Undo"_s, m_undo.Next(UndoDirection::Back));
    SetCaption(m_form.menus->redo, u"Redo"_s, m_undo.Next(UndoDirection::Forth));
}

// The bar offers to take back the last step, and no other.
void UndoCommands::Recorded(const UndoStep* step) {
    SetCaptions();
    if (step && !step->removed.empty())
        m_form.undoBar->Tell(ToQt(step->removed));
    else
        m_form.undoBar->Dismiss();
    TellProblem();
    Q_EMIT Changed();
}

void UndoCommands::TellProblem() {
    if (!m_undo.Problem().empty())
        m_panes.ShowLastingStatus(ToQt(m_undo.Problem()));
}

void UndoCommands::Go(UndoDirection direction) {
    if (direction == UndoDirection::Back)
        Q_EMIT AboutToUndo();
    if (!m_undo.Next(direction))
        return;
    const UndoRecorder::Outcome outcome = m_undo.Go(direction);
    if (!outcome.refusal.empty()) {
        m_prompts.Message(ToQt(outcome.refusal), MessageTitle());
        return;
    }
    Q_EMIT Restored();
    m_panes.ShowLastingStatus(
        (direction == UndoDirection::Back ? u"Undone: "_s : u"Done again: "_s) +
        ToQt(outcome.step.caption));
    TellProblem();
}

} // namespace tallowmere
