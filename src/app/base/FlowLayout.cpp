#include "app/base/FlowLayout.h"

#include <QWidget>

namespace tallowmere {

FlowLayout::FlowLayout(QWidget* parent, int gap) : QLayout(parent), m_gap(gap) {
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
    qDeleteAll(m_items);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const {
    return Arrange({0, 0, width, 0}, false);
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

int FlowLayout::ArrangeInColumns(const QRect& rect, bool apply) const {
    const QSize cell = minimumSize();
    const int columns = std::max(1, (rect.width() + m_gap) / std::max(1, cell.width() + m_gap));
    const auto left = [&](int column) { return (rect.width() + m_gap) * column / columns; };
    int shown = 0;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty())
            continue;
        const int column = shown % columns;
        const int row = shown / columns;
        ++shown;
        // The item itself would keep to the size that it would like to have.
        if (apply && item->widget())
            item->widget()->setGeometry(
                rect.x() + left(column), rect.y() + row * (cell.height() + m_gap),
                std::max(cell.width(), left(column + 1) - left(column) - m_gap), cell.height());
    }
    const int rows = (shown + columns - 1) / columns;
    return std::max(0, rows * (cell.height() + m_gap) - m_gap);
}

int FlowLayout::Arrange(const QRect& rect, bool apply) const {
    if (m_hasEqualColumns)
        return ArrangeInColumns(rect, apply);
    int x = rect.x();
    int y = rect.y();
    int rowHeight = 0;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (x > rect.x() && x + size.width() > rect.x() + rect.width()) {
            x = rect.x();
            y += rowHeight + m_gap;
            rowHeight = 0;
        }
        if (apply)
            item->setGeometry({{x, y}, size});
        x += size.width() + m_gap;
        rowHeight = std::max(rowHeight, size.height());
    }
    return y + rowHeight - rect.y();
}

} // namespace tallowmere
