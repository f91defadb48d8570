#include "app/forms/TableCellPainter.h"

#include "app/forms/Chip.h"
#include "core/portfolio/quote_cells.h"
#include "core/tools/move_colors.h"

#include <QApplication>
#include <QPainter>

namespace tallowmere {

namespace {

constexpr int kMargin = 6;
constexpr int kTrack = 3; // pixels high
constexpr int kMarkWidth = 3;
constexpr int kMarkHeight = 11;
constexpr int kTrackAlpha = 110;

} // namespace

void TableCellPainter::initStyleOption(QStyleOptionViewItem* option,
                                       const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto move = static_cast<PriceMove>(index.data(MoveRole).toInt());
    const bool isStale = index.data(StaleRole).toBool();
    if (move == PriceMove::None && !isStale)
        return;
    const auto recolour = [&](QPalette::ColorRole textRole, QPalette::ColorRole groundRole) {
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            const std::uint32_t text = StoredColor(option->palette.color(group, textRole));
            const std::uint32_t ground = StoredColor(option->palette.color(group, groundRole));
            const std::uint32_t color = isStale                 ? DimmedColor(text, ground)
                                        : move == PriceMove::Up ? RiseColor(text, ground)
                                                                : FallColor(text, ground);
            option->palette.setColor(group, textRole, ScreenColor(color, option->palette));
        }
    };
    recolour(QPalette::Text, QPalette::Base);
    recolour(QPalette::HighlightedText, QPalette::Highlight);
}

void TableCellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const QVariant range = index.data(RangeRole);
    if (!range.isValid()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    shown.text.clear();
    const QStyle* style = shown.widget ? shown.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &shown, painter, shown.widget);
    const bool isSelected = shown.state & QStyle::State_Selected;
    const auto group = shown.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    const QColor ink =
        shown.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
    QColor track = ink;
    track.setAlpha(kTrackAlpha);
    const QRect place = shown.rect.adjusted(kMargin, 0, -kMargin, 0);
    const int middle = place.center().y();
    painter->fillRect(QRect(place.left(), middle - kTrack / 2, place.width(), kTrack), track);
    const int left =
        place.left() + qRound(range.toDouble() * std::max(0, place.width() - kMarkWidth));
    painter->fillRect(QRect(left, middle - kMarkHeight / 2, kMarkWidth, kMarkHeight), ink);
}

} // namespace tallowmere
