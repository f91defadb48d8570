#pragma once

#include <QObject>

namespace tallowmere {

class PaneDeck;
class Portfolios;
class Prompts;
struct ScanSample;
class TransferPool;
class frmMain;
class frmTicImport;

/// The ticker scan: collects the tickers of the page in front and sends them to the portfolio.
class TickerImport : public QObject {
    Q_OBJECT
public:
    TickerImport(frmMain& form, Prompts& prompts, Portfolios& portfolios, PaneDeck& panes,
                 TransferPool& transfers);

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
    Prompts& m_prompts;
    Portfolios& m_portfolios;
    PaneDeck& m_panes;
    TransferPool& m_transfers;
    frmTicImport* m_dialog = nullptr;
    bool m_isScanning = false;
};

} // namespace tallowmere
