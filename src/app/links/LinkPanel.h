#pragma once

#include "app/forms/Chip.h"
#include "core/links/page_place.h"
#include "core/pages/history_list.h"

#include <QObject>

namespace tallowmere {

class LinkDispatch;
class PaneDeck;
class Prompts;
struct RecordingState;
class SettingsStore;
class SiteTable;
class UndoRecorder;
class frmMain;

/// How the link labels answer to the mouse: the pressed look, the right button, dragging links of
/// the user's own from slot to slot.
class LinkPanel : public QObject {
    Q_OBJECT
public:
    LinkPanel(frmMain& form, const RecordingState& recording, SettingsStore& settings,
              UndoRecorder& undo, const SiteTable& sites, Prompts& prompts, LinkDispatch& dispatch,
              PaneDeck& panes);

    /// Makes the whole panel usable again after an operation that held it.
    void EnableLinks();

    /// Whether a separate browser has something to show for a link; not for null.
    static bool CanOpenOutside(const Chip* link);

    /// The side panels stay while one of their menus is open, or a label is pressed.
    void Hold(bool held);

    /// A menu of a link was closed: no link looks any more as if the pointer were over it.
    void ForgetPointer();

    /// The link that the menu bar works on: the one that got the focus or was used last, null for
    /// none yet.
    Chip* Target() const { return m_target; }

    /// Does what a click on link `index` does, its page in a place of its own, for a ticker instead
    /// of the selected one unless that is empty. Does nothing for a link that cannot be clicked.
    void Open(int index, PagePlace place, const QString& ticker);

    /// Opens one page of `site` for all tickers of the list.
    void SendAll(const QString& site);

Q_SIGNALS:
    /// The menu of a link is wanted: by pointer that of a used slot, by keyboard that of any link
    /// but an unused slot.
    void CustomMenuRequested(int link, const QPoint& position);
    /// The list of pages under Back or Forward is wanted at a place of the screen.
    void HistoryRequested(HistorySide side, const QPoint& position);
    void EdgesTouched();
    /// The panels have to stay, or no longer so.
    void Held(bool held);

private:
    void Connect(Chip* link);
    void MouseDown(Chip* link, Qt::MouseButton button);
    void MouseMove(Chip* link, Qt::MouseButtons buttons, const QPoint& movedBy);
    void MouseUp(Chip* link, Qt::MouseButton button, bool inside);
    void RightPress(Chip* link);
    void OpenMenu(Chip* link);
    void OpenHistory(const Chip* link);
    void LongPress(Chip* link);
    void PrepareLinkMenu();
    void OpenTarget(PagePlace place);
    void OpenWhere(Chip* link, PagePlace place);
    PagePlace PlaceOf(const Chip* link, Qt::MouseButton button) const;
    void Drop(Chip* target, int source);
    void RestoreColors(Chip* link);

    frmMain& m_form;
    const RecordingState& m_recording;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    const SiteTable& m_sites;
    Prompts& m_prompts;
    LinkDispatch& m_dispatch;
    PaneDeck& m_panes;
    Chip* m_target = nullptr;
    bool m_pressed = false;
    bool m_looksPressed = false;
    ColorPair m_savedColors;
};

} // namespace tallowmere
