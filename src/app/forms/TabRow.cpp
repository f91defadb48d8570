#include "app/forms/TabRow.h"

#include "app/base/QtText.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidestTab = 28; // characters

} // namespace

TabRow::TabRow(QWidget* parent) : QTabBar(parent) {
    setObjectName(u"TabRow"_s);
    setAccessibleName(u"Pages"_s);
    setTabsClosable(true);
    setExpanding(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideRight);
    setDrawBase(false);
    connect(this, &QTabBar::currentChanged, this, &TabRow::Chosen);
    connect(this, &QTabBar::tabCloseRequested, this, &TabRow::CloseRequested);
}

void TabRow::Rebuild(const QList<Tab>& tabs) {
    while (count() > 0)
        removeTab(count() - 1);
    m_closable.clear();
    const auto side = static_cast<ButtonPosition>(
        style()->styleHint(QStyle::SH_TabBar_CloseButtonPosition, nullptr, this));
    for (const Tab& tab : tabs) {
        const int index = addTab({});
        if (!tab.isClosable)
            setTabButton(index, side, nullptr);
        m_closable << tab.isClosable;
    }
}

void TabRow::Show(const QList<Tab>& tabs, int current) {
    const QSignalBlocker quiet(this);
    QList<bool> closable;
    for (const Tab& tab : tabs)
        closable << tab.isClosable;
    if (closable != m_closable)
        Rebuild(tabs);
    for (int index = 0; index < count(); ++index) {
        const QString caption = LineStart(tabs[index].caption);
        setTabText(index, MenuCaption(caption));
        setTabToolTip(index, tabs[index].hint.isEmpty() ? caption : LineStart(tabs[index].hint));
    }
    setCurrentIndex(current);
}

void TabRow::mouseReleaseEvent(QMouseEvent* event) {
    const int index = tabAt(event->position().toPoint());
    if (event->button() == Qt::MiddleButton && index >= 0 && m_closable[index])
        Q_EMIT CloseRequested(index);
    else
        QTabBar::mouseReleaseEvent(event);
}

QSize TabRow::tabSizeHint(int index) const {
    QSize size = QTabBar::tabSizeHint(index);
    size.setWidth(std::min(size.width(), kWidestTab * fontMetrics().averageCharWidth()));
    return size;
}

} // namespace tallowmere
