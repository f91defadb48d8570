#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;
class LinkDispatch;
class PaneDeck;
class TransferPool;

/// The condensed page: the portal's quotes of one or of all portfolios in a compact grid.
class QuotePage : public QObject {
    Q_OBJECT
public:
    QuotePage(frmMain& form, MainState& state, const Services& services, LinkDispatch& dispatch,
              PaneDeck& panes, TransferPool& transfers);

    /// Fetches, writes and shows the page with a view code ("1b", "2b" or "0b"). Whatever goes
    /// wrong ends it quietly, and the page that was written before stays. A call while another
    /// works does nothing.
    void Show(std::string_view viewCode);

private:
    void Build(const std::string& query, std::string_view viewCode);
    std::string Query() const;

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    LinkDispatch& m_dispatch;
    PaneDeck& m_panes;
    TransferPool& m_transfers;
    bool m_working = false;
};

} // namespace tallowmere
