#pragma once

#include "core/market/timers.h"

#include <QObject>
#include <QTimer>

namespace tallowmere {

class LinkDispatch;
class SettingsStore;
class SiteTable;
class TransferControl;
class frmMain;

/// `Timer2`, which watches the club's pages, and `Timer3`, which reloads the page in `Web`.
class Timers : public QObject {
    Q_OBJECT
public:
    Timers(frmMain& form, SettingsStore& settings, const SiteTable& sites, TransferControl& tmNet,
           LinkDispatch& dispatch);

    /// Takes "AutoRefresh" over from the settings.
    void Start();

    /// Starts to watch the club's pages.
    void StartAlerts();

    /// A link was opened: a label that was marked has its own colours again.
    void Unmark(int link);

    QTimer Timer2;
    QTimer Timer3;

private:
    void TickClub();
    void FetchClubPages();
    void TickRefresh();
    void SwitchRefresh(bool on);

    frmMain& m_form;
    SettingsStore& m_settings;
    const SiteTable& m_sites;
    TransferControl& m_tmNet;
    ClubWatch m_watch;
    RefreshCounter m_refreshes;
    bool m_fetching = false;
};

} // namespace tallowmere
