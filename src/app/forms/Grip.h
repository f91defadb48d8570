#pragma once

#include <QWidget>

namespace tallowmere {

/// The edge between a side panel and the panes: dragging resizes the panel, a double-click folds
/// it away or brings it back.
class Grip : public QWidget {
    Q_OBJECT
public:
    Grip(const QString& accessibleName, QWidget* parent);

Q_SIGNALS:
    /// The edge was dragged by so many pixels to the right.
    void Dragged(int pixels);
    void Released();
    void DoubleClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int m_lastX = 0;
};

} // namespace tallowmere
