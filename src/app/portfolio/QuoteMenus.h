#pragma once

#include "core/portfolio/portfolio_menu.h"

#include <QObject>

class QMenu;

namespace tallowmere {

class LinkPanel;
class PaneDeck;
class Portfolios;
class QuotePage;
class SettingsStore;
class SiteTable;
class frmMain;

/// The menu that shows the quotes of one or of all portfolios. It pops up behind the link "Query
/// Portfolio" and is a submenu of the menu bar.
class QuoteMenus : public QObject {
    Q_OBJECT
public:
    QuoteMenus(frmMain& form, SettingsStore& settings, const SiteTable& sites,
               Portfolios& portfolios, PaneDeck& panes, LinkPanel& links, QuotePage& page);

    /// Pops `mnuPort` up.
    void PopUp();

    /// Does again what was chosen last for one portfolio; "Basic" when nothing was yet.
    void Repeat();

private:
    void Build();
    void Choose(const PortfolioItem& item);
    void ChooseForAll(const PortfolioItem& item);
    void Run(const PortfolioItem& item);
    void LoadPendingView();

    frmMain& m_form;
    SettingsStore& m_settings;
    const SiteTable& m_sites;
    Portfolios& m_portfolios;
    PaneDeck& m_panes;
    LinkPanel& m_links;
    QuotePage& m_page;
    QMenu* m_mnuPort;
    QMenu* m_mnuQAll;
};

} // namespace tallowmere
