#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;
class frmTicImport;
class PaneDeck;
class Portfolios;
class TransferPool;
struct ScanSample;

/// The ticker scan: collects the tickers of the page in front and sends them to the portfolio.
class TickerImport : public QObject {
    Q_OBJECT
public:
    TickerImport(frmMain& form, MainState& state, const Services& services, PaneDeck& panes,
                 Portfolios& portfolios, TransferPool& transfers);

    /// Opens the dialog; there is never more than one.
    void Open();

    /// The dialog while it is open.
    frmTicImport* Dialog() const { return m_dialog; }

private:
    void Scan();
    void Collect(std::string page, const ScanSample& sample);
    void EndScan();
    void Send();
    void RemoveEntry();

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    PaneDeck& m_panes;
    Portfolios& m_portfolios;
    TransferPool& m_transfers;
    frmTicImport* m_dialog = nullptr;
    bool m_isScanning = false;
};

} // namespace tallowmere
