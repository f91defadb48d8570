#include "app/forms/UndoBar.h"

#include "app/base/QtText.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTenSeconds = 10'000;
constexpr int kMargin = 4;
constexpr qsizetype kLongestWords = 60; ///< a name of a portfolio may be of any length

} // namespace

UndoBar::UndoBar(QWidget* parent) : QFrame(parent) {
    setObjectName(u"UndoBar"_s);
    setAccessibleName(u"Removed"_s);
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setPalette(QToolTip::palette());
    setBackgroundRole(QPalette::ToolTipBase);
    m_words = new QLabel(this);
    m_words->setObjectName(u"UndoWords"_s);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_words->setForegroundRole(QPalette::ToolTipText);
    m_undo = new QPushButton(u"Undo"_s, this);
    m_undo->setObjectName(u"UndoLink"_s);
    m_undo->setAccessibleName(u"Undo"_s);
    m_undo->setFlat(true);
    m_undo->setCursor(Qt::PointingHandCursor);
    QFont underlined = m_undo->font();
    underlined.setUnderline(true);
    m_undo->setFont(underlined);
    QPalette palette = this->palette();
    palette.setColor(QPalette::ButtonText, palette.color(QPalette::ToolTipText));
    m_undo->setPalette(palette);
    m_undo->setMaximumWidth(m_undo->fontMetrics().horizontalAdvance(m_undo->text()) + 4 * kMargin);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, 1, kMargin, 1);
    layout->setSpacing(kMargin);
    layout->addWidget(m_words, 1);
    layout->addWidget(m_undo, 0, Qt::AlignVCenter);
    Seconds.setSingleShot(true);
    Seconds.setInterval(kTenSeconds);
    connect(&Seconds, &QTimer::timeout, this, &UndoBar::TimeOut);
    connect(m_undo, &QPushButton::clicked, this, &UndoBar::UndoWanted);
    hide();
}

QString UndoBar::Words() const {
    return m_words->text();
}

void UndoBar::Tell(const QString& words) {
    m_words->setText(words.size() <= kLongestWords ? words
                                                   : words.left(kLongestWords / 2) + u"\u2026"_s +
                                                         words.right(kLongestWords / 2));
    setToolTip(LineStart(words));
    m_undo->setAccessibleDescription(m_words->text());
    Seconds.start(kTenSeconds);
    show();
    Q_EMIT Switched();
    QAccessibleEvent alert(m_words, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void UndoBar::Stay() {
    if (!isHidden())
        Seconds.start(kTenSeconds);
}

void UndoBar::TimeOut() {
    if (QApplication::activeModalWidget() || underMouse() || m_undo->hasFocus())
        Seconds.start(kTenSeconds);
    else
        Dismiss();
}

void UndoBar::Dismiss() {
    Seconds.stop();
    if (isHidden())
        return;
    hide();
    Q_EMIT Switched();
}

void UndoBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Dismiss();
    else
        QFrame::keyPressEvent(event);
}

} // namespace tallowmere
