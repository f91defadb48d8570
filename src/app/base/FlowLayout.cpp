#include "app/base/FlowLayout.h"

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

int FlowLayout::Arrange(const QRect& rect, bool apply) const {
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
