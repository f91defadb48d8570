#pragma once

#include <QObject>

namespace tallowmere {

class PaneDeck;
class SettingsStore;
class frmMain;

/// Smart navigate: asks for an address or a name, remembers it and opens it in `Web`.
class SmartNavigate : public QObject {
    Q_OBJECT
public:
    SmartNavigate(frmMain& form, SettingsStore& settings, PaneDeck& panes);

    /// Shows the dialog; the page opens once it is closed.
    void Show();

private:
    frmMain& m_form;
    SettingsStore& m_settings;
    PaneDeck& m_panes;
};

} // namespace tallowmere
