#pragma once

#include <QObject>

namespace tallowmere {

class PaneDeck;
class Portfolios;
class TickerBox;
class frmMain;

/// The order of the tickers: the commands that move the selected one and that sort the list once,
/// and the number labels on which a ticker is dropped to be moved to that portfolio, or with Ctrl
/// copied.
class ListOrder : public QObject {
    Q_OBJECT
public:
    ListOrder(frmMain& form, Portfolios& portfolios, TickerBox& tickers, PaneDeck& panes);

    /// Takes what is dropped on a number label.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MoveSelected(int rows);
    void SortBySymbol();
    void SortByChange();
    void Drop(int portfolio, int row, bool copies);
    int PortfolioOf(const QObject* label) const;

    frmMain& m_form;
    Portfolios& m_portfolios;
    TickerBox& m_tickers;
    PaneDeck& m_panes;
};

} // namespace tallowmere
