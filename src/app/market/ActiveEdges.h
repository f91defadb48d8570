#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>
#include <QTimer>

namespace tallowmere {

class frmMain;

/// The active edges: side panels that show while the pointer is at the window's edge and hide a
/// moment later.
class ActiveEdges : public QObject {
    Q_OBJECT
public:
    ActiveEdges(frmMain& form, MainState& state, const Services& services);

    /// Takes the switch over from the settings: everything that the edges show is hidden, or comes
    /// back when the feature is off.
    void Apply();

    /// Switches the feature and writes it down.
    void Switch(bool on);

    /// The pointer moved over the window: `x` and the outer `width` in twips.
    void PointerMoved(int x, int width);

    /// Restarts the countdown of `timAE`.
    void Touch();

    /// Hides both sides at once; a page is about to load.
    void HideAll();

    QTimer timAE;

private:
    void Tick();
    bool IsHeld() const;
    void ShowLeft(bool shown);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
};

} // namespace tallowmere
