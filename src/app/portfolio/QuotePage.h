#pragma once

#include "core/portfolio/portfolio_menu.h"

#include <QObject>

namespace tallowmere {

class PaneDeck;
class SettingsStore;
class SiteTable;
class TransferPool;
class frmMain;

/// The condensed page: the portal's quotes of one or of all portfolios in a compact grid.
class QuotePage : public QObject {
    Q_OBJECT
public:
    QuotePage(frmMain& form, SettingsStore& settings, const SiteTable& sites, PaneDeck& panes,
              TransferPool& transfers);

    /// What was chosen in the portfolio menu: the page shows that.
    PortfolioView& View() { return m_view; }

    /// Fetches, writes and shows the page with a view code ("1b", "2b" or "0b"). Whatever goes
    /// wrong ends it quietly, and the page that was written before stays. A call while another
    /// works begins at once, and its page is the one that is shown.
    void Show(std::string_view viewCode);

private:
    void Build(const std::string& query, std::string_view viewCode, int call);
    std::string Query() const;

    frmMain& m_form;
    SettingsStore& m_settings;
    const SiteTable& m_sites;
    PaneDeck& m_panes;
    TransferPool& m_transfers;
    PortfolioView m_view;
    int m_latest = 0; ///< counts the calls: the last one wins the pane
};

} // namespace tallowmere
