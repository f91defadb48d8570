#include "app/forms/Grip.h"

#include <QMouseEvent>
#include <QPainter>

namespace tallowmere {

Grip::Grip(const QString& accessibleName, QWidget* parent) : QWidget(parent) {
    setAccessibleName(accessibleName);
    setToolTip(accessibleName);
    setCursor(Qt::SplitHCursor);
}

void Grip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Mid));
    const int middle = height() / 2;
    for (const int offset : {-8, 0, 8})
        painter.drawEllipse(QPoint(width() / 2, middle + offset), 1, 1);
}

void Grip::mousePressEvent(QMouseEvent* event) {
    m_lastX = event->globalPosition().toPoint().x();
}

void Grip::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const int x = event->globalPosition().toPoint().x();
    Q_EMIT Dragged(x - m_lastX);
    m_lastX = x;
}

void Grip::mouseReleaseEvent(QMouseEvent*) {
    Q_EMIT Released();
}

void Grip::mouseDoubleClickEvent(QMouseEvent*) {
    Q_EMIT DoubleClicked();
}

} // namespace tallowmere
