#pragma once

#include <QWidget>

namespace tallowmere {

/// An edge between two parts of the window that is dragged, or moved with the arrow keys while it
/// has the focus. What a double-click or Enter does is the window's business.
class Grip : public QWidget {
    Q_OBJECT
public:
    /// `direction` is the one in which the edge moves.
    Grip(const QString& accessibleName, Qt::Orientation direction, QWidget* parent);

Q_SIGNALS:
    /// The edge was dragged by so many pixels to the right, or down.
    void Dragged(int pixels);
    void Released();
    void DoubleClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int Along(const QPoint& point) const;

    Qt::Orientation m_direction;
    int m_last = 0;
};

} // namespace tallowmere
