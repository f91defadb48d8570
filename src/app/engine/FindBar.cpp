#include "app/engine/FindBar.h"

#include "app/base/TabPlace.h"
#include "app/engine/FindText.h"

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

FindBar::FindBar(FindText& finding, QWidget* parent) : QWidget(parent), m_finding(finding) {
    setObjectName(u"FindBar"_s);
    hide();
}

// Most panes are never searched.
void FindBar::Build() {
    if (m_text)
        return;
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
    TakeTabPlace(*this);

    m_text->setText(m_finding.Text());
    connect(&m_finding, &FindText::Changed, this, [this] {
        // What another bar shows is put down; what is typed here is there already.
        if (m_text->text() != m_finding.Text()) {
            m_text->setText(m_finding.Text());
            m_matches->clear();
            m_isSearching = false;
        }
    });
    connect(m_text, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_finding.Set(text);
        Want(text, false);
    });
    connect(next, &QToolButton::clicked, this, [this] { FindOn(false); });
    connect(previous, &QToolButton::clicked, this, [this] { FindOn(true); });
    connect(close, &QToolButton::clicked, this, &FindBar::Close);
}

void FindBar::Open() {
    Build();
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void FindBar::FindOn(bool isBackward) {
    Build();
    if (m_text->text().isEmpty())
        Open();
    else
        Want(m_text->text(), isBackward);
}

void FindBar::Want(const QString& text, bool isBackward) {
    m_isSearching = !text.isEmpty();
    if (!m_isSearching)
        m_matches->clear();
    Q_EMIT Wanted(text, isBackward);
}

void FindBar::ShowMatch(int match, int matches) {
    if (!m_isSearching)
        return;
    m_matches->setText(matches > 0 ? tr("%1 of %2").arg(match).arg(matches) : tr("Not found"));
    if (matches == 0)
        show();
}

void FindBar::Close() {
    hide();
    Want({}, false);
    Q_EMIT Closed();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        FindOn(event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QWidget::keyPressEvent(event);
}

} // namespace tallowmere
