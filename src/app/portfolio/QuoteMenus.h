#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

class QMenu;

namespace tallowmere {

class frmMain;
class LinkPanel;
class PaneDeck;
class QuotePage;

/// The menu that shows the quotes of one or of all portfolios. It pops up behind the link "Query
/// Portfolio" and is a submenu of the menu bar.
class QuoteMenus : public QObject {
    Q_OBJECT
public:
    QuoteMenus(frmMain& form, MainState& state, const Services& services, PaneDeck& panes,
               LinkPanel& links, QuotePage& page);

    /// Pops `mnuPort` up.
    void PopUp();

    /// Does again what was chosen last for one portfolio; "Basic" when nothing was yet.
    void Repeat();

Q_SIGNALS:
    /// The menu is open, or no longer so.
    void Held(bool held);

private:
    void Build();
    void Choose(const PortfolioItem& item);
    void ChooseForAll(const PortfolioItem& item);
    void Run(const PortfolioItem& item);
    void LoadPendingView();

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    PaneDeck& m_panes;
    LinkPanel& m_links;
    QuotePage& m_page;
    QMenu* m_mnuPort;
    QMenu* m_mnuQAll;
};

} // namespace tallowmere
