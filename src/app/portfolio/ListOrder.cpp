#include "app/portfolio/ListOrder.h"

#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerBox.h"
#include "app/portfolio/TickerModel.h"

#include <QDropEvent>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

ListOrder::ListOrder(frmMain& form, Portfolios& portfolios, TickerBox& tickers, PaneDeck& panes)
    : QObject(&form), m_form(form), m_portfolios(portfolios), m_tickers(tickers), m_panes(panes) {
    const MainMenus& menus = *form.menus;
    connect(menus.At("moveUp"), &QAction::triggered, this, [this] { MoveSelected(-1); });
    connect(menus.At("moveDown"), &QAction::triggered, this, [this] { MoveSelected(1); });
    connect(menus.At("sortBySymbol"), &QAction::triggered, this, &ListOrder::SortBySymbol);
    connect(menus.At("sortByChange"), &QAction::triggered, this, &ListOrder::SortByChange);
    for (std::size_t n = 1; n < form.lblListNum.size(); ++n) {
        form.lblListNum[n]->setAcceptDrops(true);
        form.lblListNum[n]->installEventFilter(this);
    }
}

void ListOrder::MoveSelected(int rows) {
    const int row = m_form.List1->ListIndex();
    // Behind the next one is before the one after it.
    const int before = rows > 0 ? row + rows + 1 : row + rows;
    if (row >= 0 && m_portfolios.List().moveRow({}, row, {}, before))
        m_form.List1->SetListIndex(row + rows);
}

void ListOrder::SortBySymbol() {
    TickerModel& list = m_portfolios.List();
    list.Arrange(OrderBySymbol(list.Tickers()), "Sort by Symbol");
}

void ListOrder::SortByChange() {
    TickerModel& list = m_portfolios.List();
    std::vector<std::optional<double>> percents;
    for (const QString& ticker : list.Items()) {
        const auto& quote = list.QuoteOf(ticker);
        percents.push_back(quote ? quote->percentValue : std::nullopt);
    }
    if (std::ranges::none_of(percents, [](const auto& percent) { return percent.has_value(); })) {
        m_panes.ShowLastingStatus(u"No change of a price is known yet."_s);
        return;
    }
    list.Arrange(OrderByChange(percents), "Sort by Change");
}

int ListOrder::PortfolioOf(const QObject* label) const {
    const auto found = std::ranges::find(m_form.lblListNum, label);
    return found == m_form.lblListNum.end() ? 0
                                            : static_cast<int>(found - m_form.lblListNum.begin());
}

bool ListOrder::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        break;
    default:
        return QObject::eventFilter(watched, event);
    }
    const int portfolio = PortfolioOf(watched);
    auto& drop = static_cast<QDropEvent&>(*event); // the others are kinds of it
    const int row = m_portfolios.List().DraggedRow(*drop.mimeData());
    if (portfolio == 0 || portfolio == m_portfolios.Current() || row < 0) {
        drop.ignore();
        return true;
    }
    drop.acceptProposedAction();
    if (event->type() == QEvent::Drop)
        Drop(portfolio, row, drop.dropAction() == Qt::CopyAction);
    return true;
}

// What the menu of the ticker does for the one that is selected.
void ListOrder::Drop(int portfolio, int row, bool copies) {
    m_form.List1->SetListIndex(row);
    m_tickers.FillTickerMenu();
    const MainMenus& menus = *m_form.menus;
    const PortfolioMenu& command = copies ? menus.mnuCopyPort : menus.mnuMovePort;
    command.items.at(static_cast<std::size_t>(portfolio))->trigger();
}

} // namespace tallowmere
