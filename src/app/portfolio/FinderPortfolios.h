#pragma once

#include "app/base/FinderSource.h"

#include <QHash>

#include <filesystem>

namespace tallowmere {

class LinkDispatch;
class LinkPanel;
class Portfolios;
class TickerBox;
class TickerMarks;
class frmMain;

/// Offers the portfolios, their tickers, each once and by the name of its company too, and all
/// notes.
class FinderPortfolios : public FinderSource {
public:
    FinderPortfolios(frmMain& form, const std::filesystem::path& programFolder,
                     Portfolios& portfolios, TickerBox& tickers, const TickerMarks& marks,
                     const LinkDispatch& dispatch, LinkPanel& panel);

    void Offer(std::vector<FinderItem>& items) override;
    QString Detail(const FinderItem& item, const QString& ticker) override;
    /// A portfolio is shown, a ticker selected in one that holds it. In another place than a pane
    /// the link that was used last is opened for the ticker. The note of a ticker is opened.
    void Open(const FinderItem& item, PagePlace place, const QString& ticker) override;

private:
    void OfferTickers(std::vector<FinderItem>& items);
    void Select(const QString& ticker);

    frmMain& m_form;
    std::filesystem::path m_programFolder;
    Portfolios& m_portfolios;
    TickerBox& m_tickers;
    const TickerMarks& m_marks;
    const LinkDispatch& m_dispatch;
    LinkPanel& m_panel;
    QHash<QString, int> m_homes; ///< a portfolio for each ticker, the current one first of all
};

} // namespace tallowmere
