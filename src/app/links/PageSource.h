#pragma once

#include <QObject>

namespace tallowmere {

class PaneDeck;
class PaneTabs;
class frmMain;

/// The command that shows the source of the page in front, in a tab of its own.
class PageSource : public QObject {
    Q_OBJECT
public:
    PageSource(frmMain& form, PaneDeck& deck, PaneTabs& tabs);

private:
    void Show();

    PaneDeck& m_deck;
    PaneTabs& m_tabs;
};

} // namespace tallowmere
