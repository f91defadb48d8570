#include "app/forms/TopBar.h"

#include <QScrollBar>
#include <QToolButton>
#include <QWheelEvent>

namespace tallowmere {

using namespace Qt::StringLiterals;

TopBar::TopBar(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_back = MakeArrow(Qt::LeftArrow, u"Scroll the link bar to the left"_s, -1);
    m_forward = MakeArrow(Qt::RightArrow, u"Scroll the link bar to the right"_s, 1);
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, &TopBar::ShowArrows);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &TopBar::ShowArrows);
}

QToolButton* TopBar::MakeArrow(Qt::ArrowType type, const QString& name, int direction) {
    auto* arrow = new QToolButton(this);
    arrow->setArrowType(type);
    arrow->setAccessibleName(name);
    arrow->setToolTip(name);
    arrow->setFocusPolicy(Qt::NoFocus); // the arrow keys walk along the chips
    arrow->setAutoFillBackground(true);
    arrow->setAutoRepeat(true);
    arrow->hide();
    connect(arrow, &QToolButton::clicked, this,
            [this, direction] { Scroll(direction * width() / 3); });
    return arrow;
}

void TopBar::Scroll(int pixels) {
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + pixels);
}

void TopBar::ShowArrows() {
    const QScrollBar* bar = horizontalScrollBar();
    m_back->setVisible(bar->value() > bar->minimum());
    m_forward->setVisible(bar->value() < bar->maximum());
    m_back->raise();
    m_forward->raise();
}

void TopBar::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const int side = m_back->sizeHint().width();
    m_back->setGeometry(0, 0, side, height());
    m_forward->setGeometry(width() - side, 0, side, height());
    ShowArrows();
}

void TopBar::wheelEvent(QWheelEvent* event) {
    const QPoint turn = event->angleDelta();
    Scroll(-(turn.y() != 0 ? turn.y() : turn.x()));
    event->accept();
}

} // namespace tallowmere
