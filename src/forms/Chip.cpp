#include "forms/Chip.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPaddingX = 5;
constexpr int kPaddingY = 2;
constexpr int kRadius = 4;

QString DragType() {
    return u"application/x-tallowmere-link"_s;
}

} // namespace

QColor ScreenColor(std::uint32_t color, const QPalette& palette) {
    constexpr std::uint32_t systemBit = 0x80000000;
    if (!(color & systemBit))
        return QColor::fromRgb(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
    // System colours by their number: 5 window, 8 window text, 13 highlight, 14 its text,
    // 15 button face, 18 button text.
    switch (color & ~systemBit) {
    case 5:
        return palette.color(QPalette::Base);
    case 13:
        return palette.color(QPalette::Highlight);
    case 14:
        return palette.color(QPalette::HighlightedText);
    case 15:
        return palette.color(QPalette::Button);
    case 18:
        return palette.color(QPalette::ButtonText);
    default:
        return palette.color(QPalette::WindowText);
    }
}

std::uint32_t StoredColor(const QColor& color) {
    const auto [red, green, blue] = std::array{color.red(), color.green(), color.blue()};
    return static_cast<std::uint32_t>(red | green << 8 | blue << 16);
}

Chip::Chip(const QString& array, int index, const QString& caption, QWidget* parent)
    : QAbstractButton(parent), m_index(index) {
    setObjectName(index < 0 ? array : array + QString::number(index));
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    SetCaption(caption);
}

void Chip::SetCaption(const QString& caption) {
    m_caption = caption;
    setAccessibleName(caption);
    updateGeometry();
    update();
}

void Chip::SetColors(const ColorPair& colors) {
    m_colors = colors;
    update();
}

void Chip::SetQuiet(bool quiet) {
    m_quiet = quiet;
    update();
}

QSize Chip::sizeHint() const {
    const QFontMetrics metrics(font());
    const int height = metrics.height() + 2 * kPaddingY;
    return {std::max(height, metrics.horizontalAdvance(m_caption.trimmed()) + 2 * kPaddingX),
            height};
}

void Chip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor back = ScreenColor(m_colors.background, palette());
    QColor fore = ScreenColor(m_colors.text, palette());
    // A system text colour on a given background may lose its contrast in a dark palette.
    if (m_colors.text & 0x80000000)
        fore = back.lightnessF() > 0.5 ? QColor(Qt::black) : QColor(Qt::white);
    const bool attended = underMouse() || hasFocus();
    painter.setOpacity(!isEnabled() ? 0.35 : m_quiet && !attended ? 0.55 : 1.0);

    const QRectF body = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(attended && isEnabled() ? QPen(fore, 1) : QPen(back.darker(125), 1));
    painter.setBrush(underMouse() && isEnabled()
                         ? (back.lightnessF() > 0.5 ? back.darker(108) : back.lighter(130))
                         : back);
    painter.drawRoundedRect(body, kRadius, kRadius);
    if (hasFocus()) {
        painter.setPen(QPen(fore, 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(body.adjusted(2, 2, -2, -2), kRadius - 1, kRadius - 1);
    }
    painter.setPen(fore);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_caption.trimmed());
}

void Chip::mousePressEvent(QMouseEvent* event) {
    m_pressedAt = event->position().toPoint();
    Q_EMIT MouseDown(event->button());
    QAbstractButton::mousePressEvent(event);
    event->accept();
}

void Chip::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT PointerMoved();
    Q_EMIT MouseMoved(event->buttons(), event->position().toPoint() - m_pressedAt);
    QAbstractButton::mouseMoveEvent(event);
}

void Chip::mouseReleaseEvent(QMouseEvent* event) {
    Q_EMIT MouseUp(event->button(), rect().contains(event->position().toPoint()));
    QAbstractButton::mouseReleaseEvent(event);
    event->accept();
}

void Chip::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        Q_EMIT DoubleClicked();
    event->accept();
}

void Chip::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        event->ignore(); // the group moves the focus
        return;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

void Chip::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        Q_EMIT MenuKey();
    event->accept();
}

void Chip::enterEvent(QEnterEvent* event) {
    update();
    QAbstractButton::enterEvent(event);
}

void Chip::leaveEvent(QEvent* event) {
    update();
    QAbstractButton::leaveEvent(event);
}

void Chip::StartDrag() {
    setDown(false);
    auto* mime = new QMimeData;
    mime->setData(DragType(), QByteArray::number(m_index));
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    drag->setPixmap(grab());
    drag->setHotSpot(m_pressedAt);
    drag->exec(Qt::MoveAction);
}

void Chip::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasFormat(DragType()))
        event->acceptProposedAction();
}

void Chip::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    Q_EMIT Dropped(event->mimeData()->data(DragType()).toInt());
}

} // namespace tallowmere
