#pragma once

#include "app/forms/RowPainter.h"

namespace tallowmere {

class TickerListBox;
struct QuoteCells;
struct PlacedColumn;

/// The most characters of a ticker that the columns make room for.
inline constexpr int kMostTickerCharacters = 8;

/// Paints the rows of the ticker list: a ticker, its sign, and its quote in the list's columns. The
/// numbers of a stale quote are dimmed.
class TickerRowPainter : public RowPainter {
public:
    explicit TickerRowPainter(TickerListBox& list);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    /// How far the text of a row keeps from its edges.
    static int MarginOf(const QWidget& list);

private:
    struct Pens;
    static Pens PensOf(const QStyleOptionViewItem& shown, const QuoteCells& cells);
    static void PaintCell(QPainter& painter, const QRect& place, const PlacedColumn& column,
                          const QuoteCells& cells, const Pens& pens);

    TickerListBox& m_list;
};

} // namespace tallowmere
