#include "app/forms/Chip.h"

#include "app/base/QtText.h"
#include "core/tools/color_values.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleHints>

#include <utility>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPaddingX = 5;
constexpr int kPaddingY = 2;
constexpr int kRadius = 4;
constexpr int kMarkSize = 4;

QString DragType() {
    return u"application/x-tallowmere-link"_s;
}

// A shade of the background; black has none that is darker.
QColor OutlineOf(const QColor& back, const QColor& fore) {
    constexpr int kNearBlack = 16;
    if (back.value() >= kNearBlack)
        return back.darker(125);
    QColor outline = fore;
    outline.setAlphaF(0.4F);
    return outline;
}

} // namespace

QColor ScreenColor(std::uint32_t color, const QPalette& palette) {
    if (!IsSystemColor(color))
        return QColor::fromRgb(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
    switch (*ToSystemColor(color)) {
    case SystemColor::Window:
        return palette.color(QPalette::Base);
    case SystemColor::Highlight:
        return palette.color(QPalette::Highlight);
    case SystemColor::HighlightText:
        return palette.color(QPalette::HighlightedText);
    case SystemColor::ButtonFace:
        return palette.color(QPalette::Button);
    case SystemColor::ButtonText:
        return palette.color(QPalette::ButtonText);
    default:
        return palette.color(QPalette::WindowText);
    }
}

std::uint32_t StoredColor(const QColor& color) {
    return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

QColor ScreenText(const ColorPair& colors, const QPalette& palette) {
    const QColor text = ScreenColor(colors.text, palette);
    if (!IsSystemColor(colors.text))
        return text;
    const std::uint32_t background = StoredColor(ScreenColor(colors.background, palette));
    return ScreenColor(LegibleText(StoredColor(text), background), palette);
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
    m_shown = LineStart(caption.trimmed());
    setAccessibleName(caption.trimmed());
    ForgetHint();
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

void Chip::SetSizeOf(const QString& caption) {
    m_sizeOf = caption;
    ForgetHint();
}

void Chip::SetHasMenu(bool has) {
    m_hasMenu = has;
    update();
}

void Chip::ForgetPointer() {
    m_isHovered = false;
    m_forgottenAt = QCursor::pos();
    update();
}

// The window system may tell again of a pointer that has not moved.
void Chip::AttendPointer() {
    if (m_isHovered || m_forgottenAt == QCursor::pos())
        return;
    m_forgottenAt.reset();
    m_isHovered = true;
    update();
}

// Layouts ask for it again and again, and to measure a caption is most of what they cost.
QSize Chip::sizeHint() const {
    if (m_hint.isValid())
        return m_hint;
    const QFontMetrics metrics(font());
    const int height = metrics.height() + 2 * kPaddingY;
    const QString& caption = m_sizeOf.isEmpty() ? m_shown : m_sizeOf;
    m_hint = {std::max(height, metrics.horizontalAdvance(caption) + 2 * kPaddingX), height};
    return m_hint;
}

void Chip::ForgetHint() {
    m_hint = QSize();
    updateGeometry();
}

void Chip::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        ForgetHint();
    QAbstractButton::changeEvent(event);
}

void Chip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor back = ScreenColor(m_colors.background, palette());
    const QColor fore = ScreenText(m_colors, palette());
    const bool attended = m_isHovered || hasFocus();
    painter.setOpacity(isEnabled() ? 1.0 : 0.35);

    const QRectF body = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(attended && isEnabled() ? QPen(fore, 1)
                   : m_quiet               ? QPen(back, 1)
                                           : QPen(OutlineOf(back, fore), 1));
    painter.setBrush(m_isHovered && isEnabled()
                         ? (back.lightnessF() > 0.5 ? back.darker(108) : back.lighter(130))
                         : back);
    painter.drawRoundedRect(body, kRadius, kRadius);
    if (hasFocus()) {
        painter.setPen(QPen(fore, 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(body.adjusted(2, 2, -2, -2), kRadius - 1, kRadius - 1);
    }
    if (m_hasMenu)
        DrawMenuMark(painter);
    painter.setPen(fore);
    DrawCaption(painter);
}

// A small triangle that fills the corner, where no caption reaches.
void Chip::DrawMenuMark(QPainter& painter) const {
    const QPointF corner = QRectF(rect()).bottomRight() - QPointF(2.5, 2.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ScreenText(m_colors, palette()));
    painter.drawPolygon(
        QPolygonF{{corner, corner - QPointF(0, kMarkSize), corner - QPointF(kMarkSize, 0)}});
}

void Chip::DrawCaption(QPainter& painter) const {
    const int room = width() - 2 * kPaddingX;
    const int needed = painter.fontMetrics().horizontalAdvance(m_shown);
    if (needed <= room || room <= 0) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_shown);
        return;
    }
    painter.translate(kPaddingX, 0);
    painter.scale(static_cast<double>(room) / needed, 1);
    painter.drawText(QRect(0, 0, needed, height()), Qt::AlignCenter | Qt::TextSingleLine, m_shown);
}

void Chip::mousePressEvent(QMouseEvent* event) {
    m_pressedAt = event->position().toPoint();
    m_wasHeld = false;
    if (m_hasLongPress && event->button() == Qt::LeftButton)
        m_holding.start(QGuiApplication::styleHints()->mousePressAndHoldInterval(), this);
    Q_EMIT MouseDown(event->button());
    QAbstractButton::mousePressEvent(event);
    event->accept();
}

void Chip::mouseMoveEvent(QMouseEvent* event) {
    AttendPointer();
    if ((event->position().toPoint() - m_pressedAt).manhattanLength() >=
        QApplication::startDragDistance())
        m_holding.stop();
    Q_EMIT PointerMoved();
    Q_EMIT MouseMoved(event->buttons(), event->position().toPoint() - m_pressedAt);
    QAbstractButton::mouseMoveEvent(event);
}

void Chip::mouseReleaseEvent(QMouseEvent* event) {
    m_holding.stop();
    if (std::exchange(m_wasHeld, false))
        setDown(false);
    Q_EMIT MouseUp(event->button(), rect().contains(event->position().toPoint()));
    QAbstractButton::mouseReleaseEvent(event);
    event->accept();
}

void Chip::mouseDoubleClickEvent(QMouseEvent* event) {
    // Any other press counts, however soon it comes.
    if (m_hasDoubleClick && event->button() == Qt::LeftButton)
        Q_EMIT DoubleClicked();
    else
        mousePressEvent(event);
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
    case Qt::Key_F10:
        // Not every window system makes a request for the menu of it, as of the menu key.
        if (event->modifiers() == Qt::ShiftModifier)
            Q_EMIT MenuKey();
        else
            QAbstractButton::keyPressEvent(event);
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

void Chip::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    Q_EMIT Focused();
}

void Chip::enterEvent(QEnterEvent* event) {
    AttendPointer();
    QAbstractButton::enterEvent(event);
}

void Chip::leaveEvent(QEvent* event) {
    m_isHovered = false;
    update();
    QAbstractButton::leaveEvent(event);
}

void Chip::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_holding.timerId()) {
        QAbstractButton::timerEvent(event);
        return;
    }
    m_holding.stop();
    m_wasHeld = true;
    setDown(false);
    Q_EMIT LongPressed();
}

void Chip::StartDrag() {
    setDown(false);
    auto* mime = new QMimeData;
    mime->setData(DragType(), QByteArray::number(m_index));
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    drag->setPixmap(grab());
    drag->setHotSpot(m_pressedAt);
    const QPointer<Chip> alive(this);
    drag->exec(Qt::MoveAction);
    if (alive)
        ForgetPointer();
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
