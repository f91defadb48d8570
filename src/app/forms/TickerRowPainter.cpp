#include "app/forms/TickerRowPainter.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "app/forms/TickerListBox.h"
#include "core/portfolio/quote_cells.h"
#include "core/tools/move_colors.h"

#include <QApplication>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>

namespace tallowmere {

namespace {

/// The prices of a day as a line that fills a place, no more of them than it is wide.
QPolygonF LineOf(const std::vector<double>& prices, const QRectF& place) {
    const auto [low, high] = std::minmax_element(prices.begin(), prices.end());
    const double span = *high > *low ? *high - *low : 1;
    const std::size_t last = prices.size() - 1;
    const std::size_t points = std::clamp<std::size_t>(
        last, 1, std::max<std::size_t>(1, static_cast<std::size_t>(place.width())));
    QPolygonF line;
    for (std::size_t at = 0; at <= points; ++at) {
        const double price = prices[last * at / points];
        line << QPointF(place.left() +
                            place.width() * static_cast<double>(at) / static_cast<double>(points),
                        place.bottom() - place.height() * (price - *low) / span);
    }
    return line;
}

} // namespace

/// The colours of a row.
struct TickerRowPainter::Pens {
    QColor text, dimmed, last, move;
};

TickerRowPainter::TickerRowPainter(TickerListBox& list) : RowPainter(&list), m_list(list) {}

int TickerRowPainter::MarginOf(const QWidget& list) {
    return list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
}

TickerRowPainter::Pens TickerRowPainter::PensOf(const QStyleOptionViewItem& shown,
                                                const QuoteCells& cells) {
    const bool isSelected = shown.state & QStyle::State_Selected;
    const QPalette& palette = shown.palette;
    const auto group = shown.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    const auto textRole = isSelected ? QPalette::HighlightedText : QPalette::Text;
    const auto groundRole = isSelected ? QPalette::Highlight : QPalette::Base;
    const std::uint32_t text = StoredColor(palette.color(group, textRole));
    const std::uint32_t ground = StoredColor(palette.color(group, groundRole));
    const auto screen = [&](std::uint32_t color) { return ScreenColor(color, palette); };
    Pens pens{screen(text), screen(DimmedColor(text, ground)), screen(text), screen(text)};
    if (!cells.age.empty())
        pens.last = pens.move = pens.dimmed;
    else if (cells.move != PriceMove::None)
        pens.move =
            screen(cells.move == PriceMove::Up ? RiseColor(text, ground) : FallColor(text, ground));
    return pens;
}

void TickerRowPainter::PaintCell(QPainter& painter, const QRect& place, const PlacedColumn& column,
                                 const QuoteCells& cells, const Pens& pens) {
    constexpr auto kRight = Qt::AlignRight | Qt::AlignVCenter;
    switch (column.column) {
    case QuoteColumn::Last:
        painter.setPen(pens.last);
        painter.drawText(place, kRight, ToQt(cells.last));
        return;
    case QuoteColumn::Change:
        painter.setPen(pens.move);
        painter.drawText(place, kRight, ToQt(cells.change));
        return;
    case QuoteColumn::Percent:
        painter.setPen(pens.move);
        painter.drawText(place, kRight, ToQt(cells.percent));
        return;
    case QuoteColumn::Day:
        break;
    }
    if (cells.day.size() < 2) {
        painter.setPen(pens.dimmed);
        painter.drawText(place, kRight, ToQt(cells.age));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pens.move);
    painter.drawPolyline(LineOf(cells.day, QRectF(place).adjusted(0, 3, -1, -3)));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void TickerRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const QVariant quote = index.data(QuoteRole);
    if (m_list.Columns().empty() || !quote.isValid()) {
        RowPainter::paint(painter, option, index);
        return;
    }
    const auto cells = quote.value<QuoteCells>();
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const QString ticker = std::exchange(shown.text, QString());
    m_list.style()->drawControl(QStyle::CE_ItemViewItem, &shown, painter, &m_list);

    const Pens pens = PensOf(shown, cells);
    const int margin = MarginOf(m_list);
    painter->save();
    painter->setFont(shown.font);
    for (const PlacedColumn& column : m_list.Columns())
        PaintCell(*painter, {column.left, option.rect.top(), column.width, option.rect.height()},
                  column, cells, pens);
    QRect left = option.rect.adjusted(margin, 0, 0, 0);
    left.setRight(m_list.Columns().front().left - margin);
    const QString sign = index.data(SignRole).toString();
    if (!sign.isEmpty()) {
        PaintSign(*painter, shown, left, sign);
        left.setRight(left.right() - shown.fontMetrics.horizontalAdvance(sign));
    }
    painter->setPen(pens.text);
    painter->drawText(left, Qt::AlignLeft | Qt::AlignVCenter,
                      ticker.size() <= kMostTickerCharacters
                          ? ticker
                          : shown.fontMetrics.elidedText(ticker, Qt::ElideRight, left.width()));
    // Where no line stands there is the age of a price already.
    const QString age = ToQt(cells.age);
    const bool hasPlace = m_list.Shows(QuoteColumn::Day) && cells.day.size() < 2;
    if (!hasPlace && !age.isEmpty() &&
        shown.fontMetrics.horizontalAdvance(ticker + u' ' + age) < left.width()) {
        painter->setPen(pens.dimmed);
        painter->drawText(left, Qt::AlignRight | Qt::AlignVCenter, age);
    }
    painter->restore();
}

} // namespace tallowmere
