#pragma once

#include "app/forms/StripBar.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <cstdint>
#include <string>

namespace tallowmere {

class Clock;
class PaneDeck;
class SiteTable;
class TransferControl;
class frmMain;

/// The strip of six market indices: fetched about once in four minutes, opened in full by a click.
class IndexStrip : public QObject {
    Q_OBJECT
public:
    IndexStrip(frmMain& form, const SiteTable& sites, const Clock& clock, PaneDeck& panes,
               TransferControl& spooNet);

    /// One tick of `Timer1`: fetches and fills the panels when the last fetch is old enough. A
    /// tick that comes while one is under way does nothing.
    void Tick();

    /// Switches `Timer1` on; its first tick comes a second later.
    void Start();

    QTimer Timer1;

private:
    void Fetch();
    void ShowMissing(int panel, const std::string& reason);
    void OpenDetails();
    std::int64_t Now() const;

    frmMain& m_form;
    const SiteTable& m_sites;
    const Clock& m_clock;
    PaneDeck& m_panes;
    TransferControl& m_spooNet;
    int m_lastFetch = 0; ///< seconds since midnight
    bool m_fetching = false;
    std::array<std::int64_t, StripBar::kPanels> m_written{}; ///< epoch seconds, by panel
};

} // namespace tallowmere
