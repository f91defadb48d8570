#include "core/portfolio/portfolio_menu.h"

namespace tallowmere {

namespace {

void SetPendingView(PortfolioView& view, const PortfolioItem& item) {
    view.pendingView = item.command == PortfolioCommand::PendingView ? item.argument : kSkippedView;
}

} // namespace

void ChooseInPortfolioMenu(PortfolioView& view, const PortfolioItem& item) {
    if (item.command != PortfolioCommand::AllPortfolios)
        view.lastItem = static_cast<std::int16_t>(item.index);
    view.allPortfolios = false;
    SetPendingView(view, item);
}

void ChooseInAllPortfoliosMenu(PortfolioView& view, const PortfolioItem& item) {
    view.allPortfolios = true;
    SetPendingView(view, item);
}

} // namespace tallowmere
