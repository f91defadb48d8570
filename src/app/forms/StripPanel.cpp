#include "app/forms/StripPanel.h"

#include <QPainter>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// A colour between text and background that keeps a contrast above 4.5 on either.
QColor Dimmed(const QPalette& palette) {
    constexpr double kText = 0.68;
    const QColor text = palette.color(QPalette::WindowText);
    const QColor behind = palette.color(QPalette::Window);
    const auto mix = [](int one, int other) {
        return static_cast<int>(one * kText + other * (1 - kText));
    };
    return {mix(text.red(), behind.red()), mix(text.green(), behind.green()),
            mix(text.blue(), behind.blue())};
}

} // namespace

StripPanel::StripPanel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAlignment(Qt::AlignCenter);
}

void StripPanel::SetAge(const QString& age) {
    m_age = age;
    update();
}

void StripPanel::SetHint(const QString& hint) {
    m_hint = hint;
    update();
}

QString StripPanel::ShownAge() const {
    return m_age.isEmpty() ? QString() : u"  ("_s + m_age + u')';
}

int StripPanel::ShownWidth() const {
    return fontMetrics().horizontalAdvance(text().isEmpty() ? m_hint : text() + ShownAge());
}

void StripPanel::paintEvent(QPaintEvent* event) {
    if (!text().isEmpty() && m_age.isEmpty()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    QFont slanted = font();
    slanted.setItalic(true);
    painter.setFont(slanted);
    painter.setPen(Dimmed(palette()));
    const QString shown = text().isEmpty() ? m_hint : text() + ShownAge();
    painter.drawText(
        contentsRect(), Qt::AlignCenter,
        painter.fontMetrics().elidedText(shown, Qt::ElideRight, contentsRect().width()));
}

} // namespace tallowmere
