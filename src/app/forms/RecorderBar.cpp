#include "app/forms/RecorderBar.h"

#include "app/base/QtText.h"
#include "app/forms/NameMenu.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace tallowmere {

using namespace Qt::StringLiterals;

RecorderBar::RecorderBar(QWidget* parent) : QToolBar(u"Recording"_s, parent) {
    setObjectName(u"RecorderBar"_s);
    setAccessibleName(u"Recording"_s);
    setAutoFillBackground(true);
    auto* content = new QWidget(this);
    content->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(4, 0, 4, 0);
    m_line = new QLabel(content);
    m_line->setObjectName(u"RecorderLine"_s);
    m_line->setTextFormat(Qt::PlainText);
    // It must not widen the window.
    m_line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(m_line, 1);
    addWidget(content);
    m_list = new NameMenu(u"Pages"_s, this);
    m_pages = Button(u"RecorderPages"_s, u"Pages"_s);
    m_pages->setMenu(m_list);
    m_pages->setPopupMode(QToolButton::InstantPopup);
    m_discard = Button(u"RecorderDiscard"_s, u"Discard Last"_s);
    connect(m_discard, &QToolButton::clicked, this, &RecorderBar::DiscardWanted);
    connect(Button(u"RecorderEnd"_s, u"End"_s), &QToolButton::clicked, this,
            &RecorderBar::EndWanted);
}

QToolButton* RecorderBar::Button(const QString& name, const QString& caption) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(caption);
    button->setAccessibleName(caption);
    button->setFocusPolicy(Qt::TabFocus);
    addWidget(button);
    return button;
}

QString RecorderBar::Line() const {
    return m_line->text();
}

void RecorderBar::Tell(const QString& line, const QStringList& pages) {
    m_line->setText(line);
    m_line->setToolTip(line);
    m_list->clear();
    for (qsizetype at = 0; at < pages.size(); ++at)
        m_list->addAction(QString::number(at + 1) + u". "_s + MenuCaption(pages[at]));
    for (QToolButton* button : {m_pages, m_discard})
        button->setEnabled(!pages.isEmpty());
    QAccessibleEvent alert(m_line, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace tallowmere
