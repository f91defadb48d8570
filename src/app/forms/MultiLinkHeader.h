#pragma once

#include <QWidget>

class QActionGroup;

namespace tallowmere {

class TabRow;

/// The line above the pages of a multi-link: their names, to go to, and a menu of how they are laid
/// out.
class MultiLinkHeader : public QWidget {
    Q_OBJECT
public:
    struct Page {
        QString name;
        QString address;
    };

    MultiLinkHeader(const QList<Page>& pages, QWidget* parent);

    /// Says which page is in view.
    void SetCurrent(int index);
    /// Says in how many columns the pages are; 0: all on one page.
    void SetColumns(int columns);

Q_SIGNALS:
    void PageWanted(int index);
    void ColumnsWanted(int columns);

private:
    QWidget* MakeLayoutButton(int pages);

    QList<Page> m_pages;
    TabRow* m_row;
    QActionGroup* m_columns;
};

} // namespace tallowmere
