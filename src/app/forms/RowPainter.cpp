#include "app/forms/RowPainter.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "app/forms/ListRoles.h"
#include "core/tools/color_values.h"

#include <QPainter>

namespace tallowmere {

namespace {

constexpr int kSignMargin = 4;

// Not every style takes care that the text of a selected row can be read.
void MakeSelectedLegible(QPalette& palette) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const std::uint32_t text = StoredColor(palette.color(group, QPalette::HighlightedText));
        const std::uint32_t row = StoredColor(palette.color(group, QPalette::Highlight));
        palette.setColor(group, QPalette::HighlightedText,
                         ScreenColor(LegibleText(text, row), palette));
    }
}

} // namespace

void RowPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const QString sign = index.data(SignRole).toString();
    if (sign.isEmpty())
        return;
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    PaintSign(*painter, shown, option.rect, sign);
}

void RowPainter::PaintSign(QPainter& painter, const QStyleOptionViewItem& shown, const QRect& place,
                           const QString& sign) {
    const bool isSelected = shown.state & QStyle::State_Selected;
    painter.save();
    painter.setPen(shown.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(place.adjusted(0, 0, -kSignMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                     sign);
    painter.restore();
}

void RowPainter::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = LineStart(option->text);
    MakeSelectedLegible(option->palette);
}

} // namespace tallowmere
