#include "app/portfolio/QuoteMenus.h"

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/QuotePage.h"
#include "core/links/portfolio_address.h"
#include "core/portfolio/stored_portfolio.h"
#include "core/shell/settings_store.h"
#include "core/sites/site_table.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBasic = 2;

} // namespace

QuoteMenus::QuoteMenus(frmMain& form, SettingsStore& settings, const SiteTable& sites,
                       Portfolios& portfolios, PaneDeck& panes, LinkPanel& links, QuotePage& page)
    : QObject(&form), m_form(form), m_settings(settings), m_sites(sites), m_portfolios(portfolios),
      m_panes(panes), m_links(links), m_page(page),
      m_mnuPort(new QMenu(u"Query Portfolio"_s, &form)), m_mnuQAll(new QMenu(&form)) {
    Build();
    connect(m_mnuPort, &QMenu::aboutToShow, &links, [&links] { links.Hold(true); });
    connect(m_mnuPort, &QMenu::aboutToHide, &links, [&links] { links.Hold(false); });
    for (std::size_t n = 1; n <= kPortfolioCount; ++n)
        connect(form.lblListNum[n], &Chip::DoubleClicked, this, &QuoteMenus::Repeat);
    connect(form.lblPort, &Chip::DoubleClicked, this, &QuoteMenus::Repeat);
}

void QuoteMenus::Build() {
    m_mnuPort->setObjectName(u"mnuPort"_s);
    m_mnuQAll->setObjectName(u"mnuQAll"_s);
    for (const PortfolioItem& item : kPortfolioMenu) {
        const bool isSubmenu = item.command == PortfolioCommand::AllPortfolios;
        QAction* action =
            isSubmenu ? m_mnuPort->addMenu(m_mnuQAll) : m_mnuPort->addAction(QString());
        action->setText(ToQt(item.caption));
        action->setObjectName(u"mnuPort"_s + QString::number(item.index));
        if (!isSubmenu)
            connect(action, &QAction::triggered, this, [&, this] { Choose(item); });
    }
    for (const PortfolioItem& item : kAllPortfoliosMenu) {
        QAction* action = m_mnuQAll->addAction(ToQt(item.caption));
        action->setObjectName(u"mnuQAll"_s + QString::number(item.index));
        connect(action, &QAction::triggered, this, [&, this] { ChooseForAll(item); });
    }
    m_form.menus->portfolioMenu->insertMenu(m_form.menus->mnuViewPort, m_mnuPort);
}

void QuoteMenus::PopUp() {
    m_form.PopUp(m_mnuPort);
}

void QuoteMenus::Repeat() {
    const int last = m_page.View().lastItem;
    Choose(kPortfolioMenu[static_cast<std::size_t>((last == 0 ? kBasic : last) - 1)]);
}

void QuoteMenus::Choose(const PortfolioItem& item) {
    ChooseInPortfolioMenu(m_page.View(), item);
    Run(item);
}

void QuoteMenus::ChooseForAll(const PortfolioItem& item) {
    ChooseInAllPortfoliosMenu(m_page.View(), item);
    Run(item);
}

void QuoteMenus::Run(const PortfolioItem& item) {
    if (item.command == PortfolioCommand::SendAll)
        m_links.SendAll(ToQt(item.argument));
    else if (item.command == PortfolioCommand::Condensed)
        m_page.Show(item.argument);
    else
        LoadPendingView();
}

void QuoteMenus::LoadPendingView() {
    const PortfolioView& view = m_page.View();
    if (view.pendingView == kSkippedView)
        return;
    std::string tickers;
    for (const StoredPortfolio& portfolio : LoadPortfolios(m_settings)) {
        if (view.allPortfolios || portfolio.number == m_portfolios.Current())
            tickers += portfolio.tickers;
    }
    m_panes.Navigate(ToQt(QueryPortfolioAddress(tickers, view.pendingView, m_sites)));
}

} // namespace tallowmere
