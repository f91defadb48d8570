#pragma once

#include <QScrollArea>

class QToolButton;

namespace tallowmere {

/// A single row of chips that scrolls sideways: by the wheel, by an arrow at the end where
/// something is hidden, and with the focus.
class TopBar : public QScrollArea {
    Q_OBJECT
public:
    explicit TopBar(QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QToolButton* MakeArrow(Qt::ArrowType type, const QString& name, int direction);
    void Scroll(int pixels);
    void ShowArrows();

    QToolButton* m_back;
    QToolButton* m_forward;
};

} // namespace tallowmere
