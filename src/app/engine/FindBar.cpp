#include "app/engine/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

QToolButton* AddButton(QHBoxLayout* layout, const QString& caption, const QString& toolTip) {
    auto* button = new QToolButton;
    button->setText(caption);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setAutoRaise(true);
    layout->addWidget(button);
    return button;
}

} // namespace

FindBar::FindBar(QWidget* parent) : QWidget(parent) {
    setObjectName(u"FindBar"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    m_text = new QLineEdit;
    m_text->setObjectName(u"FindText"_s);
    m_text->setPlaceholderText(tr("Find in page"));
    m_text->setAccessibleName(tr("Find in page"));
    m_text->setClearButtonEnabled(true);
    layout->addWidget(m_text, 1);
    m_matches = new QLabel;
    m_matches->setObjectName(u"FindMatches"_s);
    layout->addWidget(m_matches);
    auto* previous = AddButton(layout, u"\u2191"_s, tr("Previous"));
    auto* next = AddButton(layout, u"\u2193"_s, tr("Next"));
    auto* close = AddButton(layout, u"\u2715"_s, tr("Close"));
    hide();

    const auto forward = [this] { Q_EMIT Wanted(m_text->text(), false); };
    connect(m_text, &QLineEdit::textEdited, this, forward);
    connect(next, &QToolButton::clicked, this, forward);
    connect(previous, &QToolButton::clicked, this, [this] { Q_EMIT Wanted(m_text->text(), true); });
    connect(close, &QToolButton::clicked, this, &FindBar::Close);
}

void FindBar::Open() {
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void FindBar::ShowMatch(int match, int matches) {
    if (m_text->text().isEmpty())
        m_matches->clear();
    else
        m_matches->setText(matches > 0 ? tr("%1 of %2").arg(match).arg(matches) : tr("Not found"));
}

void FindBar::Close() {
    hide();
    Q_EMIT Wanted({}, false);
    Q_EMIT Closed();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT Wanted(m_text->text(), event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QWidget::keyPressEvent(event);
}

} // namespace tallowmere
