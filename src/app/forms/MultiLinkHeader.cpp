#include "app/forms/MultiLinkHeader.h"

#include "app/forms/TabRow.h"
#include "core/custom/page_tiles.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace tallowmere {

using namespace Qt::StringLiterals;

MultiLinkHeader::MultiLinkHeader(const QList<Page>& pages, QWidget* parent)
    : QWidget(parent), m_pages(pages), m_row(new TabRow(this)), m_columns(new QActionGroup(this)) {
    setObjectName(u"MultiLinkHeader"_s);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAutoFillBackground(true);
    m_row->setObjectName(u"MultiLinkPages"_s);
    m_row->setAccessibleName(u"Pages of this multi-link"_s);
    m_row->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    connect(m_row, &TabRow::Chosen, this, &MultiLinkHeader::PageWanted);
    // Whoever has scrolled away goes back to the same page.
    connect(m_row, &QTabBar::tabBarClicked, this, [this](int index) {
        if (index == m_row->currentIndex())
            Q_EMIT PageWanted(index);
    });
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(m_row, 1);
    all->addWidget(MakeLayoutButton(static_cast<int>(pages.size())));
    SetCurrent(0);
}

QWidget* MultiLinkHeader::MakeLayoutButton(int pages) {
    auto* button = new QToolButton(this);
    button->setObjectName(u"MultiLinkLayout"_s);
    button->setText(u"Layout"_s);
    button->setAccessibleName(button->text());
    button->setToolTip(u"How the pages are laid out"_s);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button->text(), button);
    for (int columns = 0; columns <= kMostTileColumns; ++columns) {
        QAction* choice = menu->addAction(columns == 0   ? u"On One Page"_s
                                          : columns == 1 ? u"1 Column"_s
                                                         : u"%1 Columns"_s.arg(columns));
        choice->setCheckable(true);
        choice->setData(columns);
        choice->setEnabled(columns <= std::max(1, pages));
        m_columns->addAction(choice);
    }
    connect(m_columns, &QActionGroup::triggered, this,
            [this](const QAction* choice) { Q_EMIT ColumnsWanted(choice->data().toInt()); });
    button->setMenu(menu);
    return button;
}

void MultiLinkHeader::SetCurrent(int index) {
    QList<TabRow::Tab> tabs;
    for (const Page& page : m_pages)
        tabs << TabRow::Tab{page.name, false, page.address};
    m_row->Show(tabs, index);
}

void MultiLinkHeader::SetColumns(int columns) {
    for (QAction* choice : m_columns->actions())
        choice->setChecked(choice->data().toInt() == columns);
}

} // namespace tallowmere
