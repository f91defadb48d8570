#include "app/forms/FinderRowPainter.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "app/forms/FinderRows.h"
#include "core/finder/finder.h"
#include "core/tools/color_values.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace tallowmere {

namespace {

constexpr int kMargin = 6;
constexpr int kAbove = 3;

int KindWidth(const QFontMetrics& metrics) {
    int width = 0;
    for (int kind = 0; kind <= static_cast<int>(FinderKind::Guide); ++kind)
        width = std::max(width,
                         metrics.horizontalAdvance(ToQt(KindName(static_cast<FinderKind>(kind)))));
    return width + 2 * kMargin;
}

QColor Between(const QColor& text, const QColor& ground) {
    const auto mix = [](int a, int b) { return (3 * a + b) / 4; };
    return {mix(text.red(), ground.red()), mix(text.green(), ground.green()),
            mix(text.blue(), ground.blue())};
}

void DrawText(QPainter& painter, const QRect& area, const FinderRow& row, const QFont& font) {
    QFont bold = font;
    bold.setBold(true);
    const QString shown =
        QFontMetrics(bold).elidedText(LineStart(row.text), Qt::ElideRight, area.width());
    QTextLayout layout(shown, font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    QList<QTextLayout::FormatRange> marks;
    for (const FinderRow::Mark& mark : row.marks) {
        QTextLayout::FormatRange range;
        range.start = mark.start;
        range.length = std::min<int>(mark.length, static_cast<int>(shown.size()) - mark.start);
        range.format.setFontWeight(QFont::Bold);
        if (range.length > 0)
            marks << range;
    }
    layout.setFormats(marks);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid())
        return;
    const qreal top = area.top() + (area.height() - line.height()) / 2;
    painter.setClipRect(area);
    layout.draw(&painter, QPointF(area.left(), top));
    painter.setClipping(false);
}

} // namespace

void FinderRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const auto* rows = qobject_cast<const FinderRows*>(index.model());
    if (!rows)
        return;
    QStyleOptionViewItem shown = option;
    const bool isSelected = option.state & QStyle::State_Selected;
    // The list never has the focus, the line above it has.
    shown.state |= QStyle::State_Active;
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &shown, painter, option.widget);

    const QPalette& palette = option.palette;
    const QColor ground =
        palette.color(QPalette::Active, isSelected ? QPalette::Highlight : QPalette::Base);
    const QColor text =
        isSelected ? ScreenColor(LegibleText(StoredColor(palette.color(QPalette::Active,
                                                                       QPalette::HighlightedText)),
                                             StoredColor(ground)),
                                 palette)
                   : palette.color(QPalette::Active, QPalette::Text);
    const QColor dim = isSelected ? text : Between(text, ground);
    const FinderRow& row = rows->At(index.row());
    const QFontMetrics metrics(option.font);
    QRect area = option.rect.adjusted(kMargin, 0, -kMargin, 0);
    const int kindWidth = std::min(KindWidth(metrics), area.width() / 3);

    painter->save();
    painter->setFont(option.font);
    painter->setPen(dim);
    painter->drawText(QRect(area.left(), area.top(), kindWidth, area.height()),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      metrics.elidedText(row.kind, Qt::ElideRight, kindWidth));
    area.setLeft(area.left() + kindWidth);
    const QString detail = metrics.elidedText(LineStart(rows->DetailOf(index.row())),
                                              Qt::ElideMiddle, area.width() * 9 / 20);
    const int detailWidth = detail.isEmpty() ? 0 : metrics.horizontalAdvance(detail) + kMargin;
    painter->drawText(area, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, detail);
    painter->setPen(text);
    DrawText(*painter, area.adjusted(0, 0, -detailWidth, 0), row, option.font);
    painter->restore();
}

QSize FinderRowPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {0, QFontMetrics(option.font).height() + 2 * kAbove};
}

} // namespace tallowmere
