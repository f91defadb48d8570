#include "app/forms/StripBar.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPadding = 12;
constexpr int kLinePadding = 6;

} // namespace

StripBar::StripBar(QWidget* parent) : QWidget(parent) {
    setObjectName(u"SpooBar"_s);
    setAccessibleName(u"Market indices"_s);
    setFocusPolicy(Qt::TabFocus);
    for (int panel = 1; panel <= kPanels; ++panel) {
        auto* label = new QLabel(this);
        label->setObjectName(u"SpooBar"_s + QString::number(panel));
        label->setToolTip(u"Indexes retrieved from Yahoo! Finanace"_s);
        label->setTextFormat(Qt::PlainText);
        label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        label->setAlignment(Qt::AlignCenter);
        label->installEventFilter(this);
        m_panels[static_cast<std::size_t>(panel - 1)] = label;
    }
}

QString StripBar::PanelText(int panel) const {
    return m_panels.at(static_cast<std::size_t>(panel - 1))->text();
}

void StripBar::SetPanelText(int panel, const QString& text) {
    const int before = heightForWidth(width());
    QLabel* label = m_panels.at(static_cast<std::size_t>(panel - 1));
    label->setText(text);
    label->setAccessibleName(text);
    if (heightForWidth(width()) == before)
        Arrange();
    else
        Q_EMIT HeightChanged();
}

void StripBar::SetPanelNote(int panel, const QString& note) {
    QLabel* label = m_panels.at(static_cast<std::size_t>(panel - 1));
    label->setAccessibleDescription(note);
}

bool StripBar::eventFilter(QObject* watched, QEvent* event) {
    const QString note = qobject_cast<QLabel*>(watched)->accessibleDescription();
    if (!note.isEmpty() && event->type() == QEvent::Enter)
        Q_EMIT NotePointedAt(note);
    else if (!note.isEmpty() && event->type() == QEvent::Leave)
        Q_EMIT NotePointedAt({});
    return false;
}

int StripBar::Columns(int width) const {
    int widest = 1;
    for (const QLabel* label : m_panels)
        widest = std::max(widest, label->fontMetrics().horizontalAdvance(label->text()) + kPadding);
    const int fitting = width / widest;
    return fitting >= 6 ? 6 : fitting >= 3 ? 3 : fitting >= 2 ? 2 : 1;
}

int StripBar::heightForWidth(int width) const {
    return kPanels / Columns(width) * (fontMetrics().height() + kLinePadding);
}

void StripBar::resizeEvent(QResizeEvent*) {
    Arrange();
}

void StripBar::Arrange() {
    const int columns = Columns(width());
    const int rowHeight = fontMetrics().height() + kLinePadding;
    for (int i = 0; i < kPanels; ++i) {
        const int column = i % columns;
        const int left = width() * column / columns;
        const int right = width() * (column + 1) / columns;
        m_panels[static_cast<std::size_t>(i)]->setGeometry(left, i / columns * rowHeight,
                                                           right - left, rowHeight);
    }
}

void StripBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT Clicked();
}

void StripBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Space)
        Q_EMIT Clicked();
    else
        QWidget::keyPressEvent(event);
}

} // namespace tallowmere
