#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;
class PaneDeck;

/// Smart navigate: asks for an address or a name, remembers it and opens it in `Web`.
class SmartNavigate : public QObject {
    Q_OBJECT
public:
    SmartNavigate(frmMain& form, MainState& state, const Services& services, PaneDeck& panes);

    /// Shows the dialog; the page opens once it is closed.
    void Show();

private:
    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    PaneDeck& m_panes;
};

} // namespace tallowmere
