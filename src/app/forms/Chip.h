#pragma once

#include "core/tools/color_config.h"

#include <QAbstractButton>
#include <QBasicTimer>

#include <optional>

namespace tallowmere {

/// A colour as the window system takes it; system colours follow the palette.
QColor ScreenColor(std::uint32_t color, const QPalette& palette);

/// A colour of the window system as it is stored, 0x00BBGGRR.
std::uint32_t StoredColor(const QColor& color);

/// The text colour of a pair. One of the system's becomes black or white where it could not be
/// read on the background; a colour that the user chose stays.
QColor ScreenText(const ColorPair& colors, const QPalette& palette);

/// A small flat label that is clicked: a research link, a portfolio number, a caption. It tells of
/// the mouse before it tells of the click, as `MouseDown`, `MouseMove`, `MouseUp`, `clicked`.
class Chip : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString caption READ Caption WRITE SetCaption)
public:
    /// `array` and `index` name the control ("lbllink" and 3 make "lbllink3"); an index below 0
    /// leaves the name alone.
    Chip(const QString& array, int index, const QString& caption, QWidget* parent);

    int Index() const { return m_index; }

    /// The caption as shown; an ampersand is no access key here.
    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);

    const ColorPair& Colors() const { return m_colors; }
    void SetColors(const ColorPair& colors);

    /// A quiet chip has no outline until the pointer or the focus comes near; its colours are shown
    /// like those of any other.
    void SetQuiet(bool quiet);

    /// Gives the chip the size of this caption, whatever it shows: a longer one is set narrower.
    void SetSizeOf(const QString& caption);

    /// Whether a second press that follows quickly is a double click; if not, it is one more press.
    void SetHasDoubleClick(bool has) { m_hasDoubleClick = has; }

    /// A chip with a menu bears a small mark.
    void SetHasMenu(bool has);
    bool HasMenu() const { return m_hasMenu; }

    /// Whether the left button does something else when it is held: `LongPressed` comes then, and
    /// no click when it is released.
    void SetHasLongPress(bool has) { m_hasLongPress = has; }

    /// The chip looks as without the pointer until that moves over it again: after a menu or a
    /// drag nobody tells it where the pointer went.
    void ForgetPointer();

    /// Whether links may be dropped here.
    void SetTakesDrops(bool takes) { setAcceptDrops(takes); }

    /// Begins a drag of this chip, which ends with `Dropped` on another chip or with nothing.
    void StartDrag();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void MouseDown(Qt::MouseButton button);
    void MouseMoved(Qt::MouseButtons buttons, const QPoint& movedBy);
    void MouseUp(Qt::MouseButton button, bool inside);
    void DoubleClicked();
    void LongPressed();
    void MenuKey();
    void Dropped(int sourceIndex);
    void PointerMoved();
    /// The chip has got the keyboard focus.
    void Focused();

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void ForgetHint();
    void AttendPointer();
    void DrawCaption(QPainter& painter) const;
    void DrawMenuMark(QPainter& painter) const;

    QString m_caption;
    QString m_shown;      ///< of the caption, without blanks around it
    mutable QSize m_hint; ///< as it was measured last, invalid when it has to be measured
    QString m_sizeOf;     ///< the caption whose size the chip has, empty for its own
    ColorPair m_colors;
    int m_index;
    bool m_quiet = false;
    bool m_hasDoubleClick = false;
    bool m_hasMenu = false;
    bool m_hasLongPress = false;
    bool m_wasHeld = false; ///< the release to come is the end of a long press
    QBasicTimer m_holding;
    bool m_isHovered = false;
    std::optional<QPoint> m_forgottenAt; ///< where the pointer was when it was forgotten
    QPoint m_pressedAt;
};

} // namespace tallowmere
