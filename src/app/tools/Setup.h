#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class ActiveEdges;
class ColorSettings;
class frmMain;
class frmUser;
class PaneDeck;
class TickerStrip;

/// The setup dialog: its check boxes work and are saved at once, its texts when it closes, and
/// what leads out of it follows then.
class Setup : public QObject {
    Q_OBJECT
public:
    Setup(frmMain& form, MainState& state, const Services& services, PaneDeck& panes,
          ActiveEdges& edges, TickerStrip& ticker, ColorSettings& colors);

    /// Shows the dialog and returns when it is closed and what was asked for is under way.
    void Show();

Q_SIGNALS:
    /// The dialog is closed: the colours may have changed.
    void Closed();
    void HelpRequested();
    void ReportRequested();

private:
    void Fill(frmUser& dialog) const;
    void Connect(frmUser& dialog);
    void ToggleMember(frmUser& dialog);
    void PurgeNotes();
    void SaveStartPage();
    void Save(const frmUser& dialog);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    PaneDeck& m_panes;
    ActiveEdges& m_edges;
    TickerStrip& m_ticker;
    ColorSettings& m_colors;
    bool m_memberArmed = false;
    bool m_helpRequested = false;
    bool m_reportRequested = false;
};

} // namespace tallowmere
