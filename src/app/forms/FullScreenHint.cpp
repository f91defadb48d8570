#include "app/forms/FullScreenHint.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFiveSeconds = 5'000;
constexpr int kMargin = 6;

} // namespace

FullScreenHint::FullScreenHint(QWidget* parent) : QFrame(parent) {
    setObjectName(u"FullScreenHint"_s);
    setAccessibleName(u"Full screen"_s);
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setPalette(QToolTip::palette());
    setBackgroundRole(QPalette::ToolTipBase);
    m_words = new QLabel(this);
    m_words->setObjectName(u"FullScreenWords"_s);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_words->setForegroundRole(QPalette::ToolTipText);
    auto* leave = new QPushButton(tr("Leave Full Screen"), this);
    leave->setObjectName(u"LeaveFullScreen"_s);
    leave->setAccessibleName(leave->text());
    leave->setFocusPolicy(Qt::TabFocus);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_words, 1);
    layout->addWidget(leave);
    Seconds.setSingleShot(true);
    Seconds.setInterval(kFiveSeconds);
    connect(&Seconds, &QTimer::timeout, this, &FullScreenHint::TimeOut);
    connect(leave, &QPushButton::clicked, this, &FullScreenHint::LeaveWanted);
    parent->installEventFilter(this);
    hide();
}

void FullScreenHint::SetText(const QString& text) {
    m_words->setText(text);
    m_words->setAccessibleName(text);
}

void FullScreenHint::ShowForAWhile() {
    Seconds.start();
    if (isVisible())
        return;
    show();
    Place();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void FullScreenHint::TimeOut() {
    // Who is about to press the button is not to miss it.
    if (underMouse() || isAncestorOf(window()->focusWidget()))
        Seconds.start();
    else
        hide();
}

void FullScreenHint::Place() {
    const int room = parentWidget()->width() - 2 * kMargin;
    const int oneLine = m_words->fontMetrics().horizontalAdvance(m_words->text()) +
                        sizeHint().width() - m_words->sizeHint().width() + kMargin;
    const int width = std::min(room, std::max(oneLine, sizeHint().width()));
    const int height = std::max(sizeHint().height(), heightForWidth(width));
    setGeometry((parentWidget()->width() - width) / 2, kMargin, width, height);
    raise();
}

bool FullScreenHint::eventFilter(QObject* watched, QEvent* event) {
    // What is put beside it later would lie above it.
    const bool isMoved = event->type() == QEvent::Resize || event->type() == QEvent::ChildAdded;
    if (watched == parentWidget() && isMoved && isVisible())
        Place();
    return QFrame::eventFilter(watched, event);
}

} // namespace tallowmere
