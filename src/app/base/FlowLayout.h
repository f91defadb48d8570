#pragma once

#include <QLayout>

namespace tallowmere {

/// Lays its widgets out in rows, each at its own size, and starts a new row where the width ends.
class FlowLayout : public QLayout {
public:
    explicit FlowLayout(QWidget* parent, int gap);

    /// Puts the items into columns of one width, as many as there is room for, that share the room.
    void SetEqualColumns(bool equal) { m_hasEqualColumns = equal; }

    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override { m_items.append(item); }
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    int Arrange(const QRect& rect, bool apply) const;
    int ArrangeInColumns(const QRect& rect, bool apply) const;

    bool m_hasEqualColumns = false;
    QList<QLayoutItem*> m_items;
    int m_gap;
};

} // namespace tallowmere
