#include "app/forms/Grip.h"

#include <QMouseEvent>
#include <QPainter>

namespace tallowmere {

namespace {

constexpr int kKeyStep = 16;

} // namespace

Grip::Grip(const QString& accessibleName, Qt::Orientation direction, QWidget* parent)
    : QWidget(parent), m_direction(direction) {
    setAccessibleName(accessibleName);
    setToolTip(accessibleName);
    setCursor(direction == Qt::Horizontal ? Qt::SplitHCursor : Qt::SplitVCursor);
    setFocusPolicy(Qt::TabFocus);
}

int Grip::Along(const QPoint& point) const {
    return m_direction == Qt::Horizontal ? point.x() : point.y();
}

void Grip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (hasFocus())
        painter.fillRect(rect(), palette().color(QPalette::Highlight));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(hasFocus() ? QPalette::HighlightedText : QPalette::Mid));
    const QPoint middle(width() / 2, height() / 2);
    for (const int offset : {-8, 0, 8}) {
        const QPoint beside = m_direction == Qt::Horizontal ? QPoint(0, offset) : QPoint(offset, 0);
        painter.drawEllipse(middle + beside, 1, 1);
    }
}

void Grip::mousePressEvent(QMouseEvent* event) {
    m_last = Along(event->globalPosition().toPoint());
}

void Grip::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const int now = Along(event->globalPosition().toPoint());
    Q_EMIT Dragged(now - m_last);
    m_last = now;
}

void Grip::mouseReleaseEvent(QMouseEvent*) {
    Q_EMIT Released();
}

void Grip::mouseDoubleClickEvent(QMouseEvent*) {
    Q_EMIT DoubleClicked();
}

void Grip::keyPressEvent(QKeyEvent* event) {
    const bool sideways = m_direction == Qt::Horizontal;
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        Q_EMIT DoubleClicked();
    } else if (key == (sideways ? Qt::Key_Left : Qt::Key_Up) ||
               key == (sideways ? Qt::Key_Right : Qt::Key_Down)) {
        Q_EMIT Dragged(key == Qt::Key_Left || key == Qt::Key_Up ? -kKeyStep : kKeyStep);
        Q_EMIT Released();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace tallowmere
