#pragma once

#include <QStyledItemDelegate>

namespace tallowmere {

/// Paints a row of FinderRows: what it is, its text with what was found in it, what stands beside
/// it. All of it is plain text.
class FinderRowPainter : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace tallowmere
