#include "app/forms/StripBar.h"

#include "app/forms/StripPanel.h"

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
        auto* label = new StripPanel(this);
        label->setObjectName(u"SpooBar"_s + QString::number(panel));
        label->setToolTip(u"Indexes retrieved from Yahoo! Finanace"_s);
        label->installEventFilter(this);
        m_panels[static_cast<std::size_t>(panel - 1)] = label;
    }
}

QString StripBar::PanelText(int panel) const {
    return Panel(panel)->text();
}

template <typename Change>
void StripBar::Rearrange(Change change) {
    const int before = heightForWidth(width());
    change();
    if (heightForWidth(width()) == before)
        Arrange();
    else
        Q_EMIT HeightChanged();
}

void StripBar::SetPanelText(int panel, const QString& text) {
    Rearrange([&] {
        Panel(panel)->setText(text);
        Panel(panel)->setAccessibleName(text);
    });
}

void StripBar::SetPanelNote(int panel, const QString& note) {
    Panel(panel)->setAccessibleDescription(note);
}

void StripBar::SetPanelAge(int panel, const QString& age) {
    Rearrange([&] { Panel(panel)->SetAge(age); });
}

void StripBar::SetPanelHint(int panel, const QString& hint) {
    Rearrange([&] { Panel(panel)->SetHint(hint); });
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
    for (const StripPanel* panel : m_panels)
        widest = std::max(widest, panel->ShownWidth() + kPadding);
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
