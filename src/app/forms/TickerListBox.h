#pragma once

#include "app/forms/ListBox.h"
#include "core/portfolio/quote_columns.h"

namespace tallowmere {

/// The list of tickers: beside each ticker stand the columns of its quote for which there is room.
class TickerListBox : public ListBox {
    Q_OBJECT
public:
    TickerListBox(const QString& name, const QString& accessibleName, QWidget* parent);

    void setModel(QAbstractItemModel* model) override;

    /// Shows these columns of the quotes from now on, as far as there is room.
    void ShowColumns(const OfColumns<bool>& wanted);
    /// Where the columns stand that are shown.
    const std::vector<PlacedColumn>& Columns() const { return m_columns; }
    bool Shows(QuoteColumn column) const;
    /// Whether any column is to be shown.
    bool Wants() const;

    /// The first and the last row that can be seen, -1 and -1 for none.
    std::pair<int, int> RowsInView() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ForgetWidths();
    bool PlaceForRowsInView();

    OfColumns<bool> m_wanted{};
    OfColumns<int> m_widest{}; ///< of the cells that were painted, without the line
    int m_widestTicker = 0;
    std::vector<PlacedColumn> m_columns;
};

} // namespace tallowmere
