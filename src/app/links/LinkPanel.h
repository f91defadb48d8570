#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;
class LinkDispatch;
class PaneDeck;

/// How the link labels answer to the mouse: the pressed look, the right button, dragging links of
/// the user's own from slot to slot.
class LinkPanel : public QObject {
    Q_OBJECT
public:
    LinkPanel(frmMain& form, MainState& state, const Services& services, LinkDispatch& dispatch,
              PaneDeck& panes);

    /// Makes the whole panel usable again after an operation that held it.
    void EnableLinks();

    /// Opens one page of `site` for all tickers of the list.
    void SendAll(const QString& site);

Q_SIGNALS:
    void CustomMenuRequested(int slot, const QPoint& position);
    void EdgesTouched();
    /// A label is pressed or dragged, or no longer so.
    void Held(bool held);

private:
    void Connect(Chip* link);
    void MouseDown(Chip* link, Qt::MouseButton button);
    void MouseMove(Chip* link, Qt::MouseButtons buttons, const QPoint& movedBy);
    void MouseUp(Chip* link, Qt::MouseButton button, bool inside);
    void RightPress(Chip* link);
    void OpenMenu(Chip* link);
    void Drop(Chip* target, int source);
    void RestoreColors(Chip* link);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    LinkDispatch& m_dispatch;
    PaneDeck& m_panes;
    bool m_pressed = false;
    bool m_looksPressed = false;
    ColorPair m_savedColors;
};

} // namespace tallowmere
