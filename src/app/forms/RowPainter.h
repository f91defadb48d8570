#pragma once

#include <QStyledItemDelegate>

namespace tallowmere {

/// Paints the rows of our lists: the first line of each text, legible where it is selected too, and
/// its sign at the end.
class RowPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

    /// Paints the sign of an item, if it has one, at the right end of a place.
    static void PaintSign(QPainter& painter, const QStyleOptionViewItem& shown, const QRect& place,
                          const QString& sign);
};

} // namespace tallowmere
