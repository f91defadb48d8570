#include "app/forms/ChangeBar.h"

#include "app/forms/ElidedLabel.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QPushButton>
#include <QToolTip>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 4;

} // namespace

ChangeBar::ChangeBar(QWidget* parent) : QFrame(parent) {
    setObjectName(u"barChange"_s);
    setAccessibleName(u"Change of the page"_s);
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setPalette(QToolTip::palette());
    setBackgroundRole(QPalette::ToolTipBase);
    m_words = new ElidedLabel({}, this);
    m_words->setObjectName(u"lblChange"_s);
    m_words->setForegroundRole(QPalette::ToolTipText);
    m_show = new QPushButton(u"Sho&w"_s, this);
    m_show->setObjectName(u"cmdShowChange"_s);
    m_show->setAccessibleName(u"Show"_s);
    auto* dismiss = new QPushButton(u"&Dismiss"_s, this);
    dismiss->setObjectName(u"cmdDismissChange"_s);
    dismiss->setAccessibleName(u"Dismiss"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, 1, kMargin, 1);
    layout->addWidget(m_words, 1);
    layout->addWidget(m_show);
    layout->addWidget(dismiss);
    connect(m_show, &QPushButton::clicked, this, &ChangeBar::ShowWanted);
    connect(dismiss, &QPushButton::clicked, this, &QWidget::hide);
    hide();
}

QString ChangeBar::Words() const {
    return m_words->text();
}

void ChangeBar::Tell(const QString& words, bool hasMore) {
    m_words->setText(words);
    m_show->setVisible(hasMore);
    show();
    QAccessibleEvent alert(m_words, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace tallowmere
