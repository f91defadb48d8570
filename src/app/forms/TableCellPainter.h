#pragma once

#include <QStyledItemDelegate>

namespace tallowmere {

/// Draws the cells of the table of tickers: prices that rose or fell in their colours, old ones
/// dimmed, ranges as bars with a mark where the price is.
class TableCellPainter : public QStyledItemDelegate {
    Q_OBJECT
public:
    enum Role {
        MoveRole = Qt::UserRole, ///< a PriceMove
        StaleRole,               ///< whether the cell is of an old price
        RangeRole                ///< where in its range the price is, 0 to 1; none for no range
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace tallowmere
