#pragma once

#include "core/links/menu_table.h"
#include "core/links/page_place.h"

#include <QHash>
#include <QObject>

class QMenu;

namespace tallowmere {

class Clock;
class LinkDispatch;
class MenuTable;
class PaneDeck;
class Prompts;
class SearchMenu;
class SiteTable;
class frmMain;

/// The site menus that links pop up. A menu is built from the tables when it is first wanted.
class SitePopups : public QObject {
    Q_OBJECT
public:
    SitePopups(frmMain& form, const SiteTable& sites, const MenuTable& addresses, Prompts& prompts,
               const Clock& clock, LinkDispatch& dispatch, PaneDeck& panes);

    /// The menu of a name ("mnuBigchart"); none for an unknown name.
    SearchMenu* Menu(const QString& name);

    /// Pops a menu up at the pointer, or below the link that has the focus.
    void PopUp(const QString& name);

    /// Loads the page of an item ("mnuBChart", 16).
    void Choose(const QString& array, int index) { ChooseFor(array, index, {}); }

    /// The same in a place of its own, for a ticker instead of the selected one unless that is
    /// empty.
    void Open(const QString& array, int index, PagePlace place, const QString& ticker);

Q_SIGNALS:
    /// A menu is open, or no longer so.
    void Held(bool held);
    /// An array that is filled at run time was put into its menu.
    void RunTimeArrayBuilt(const QString& array, QMenu* menu);

private:
    void ChooseFor(const QString& array, int index, const QString& ticker);
    SearchMenu* Build(std::string_view name);
    SearchMenu* NewMenu(const QString& name, std::string_view caption);
    void AddArray(QMenu* menu, std::string_view array);
    void Hold(const QMenu* menu);

    frmMain& m_form;
    const SiteTable& m_sites;
    const MenuTable& m_addresses;
    Prompts& m_prompts;
    const Clock& m_clock;
    LinkDispatch& m_dispatch;
    PaneDeck& m_panes;
    QHash<QString, SearchMenu*> m_menus;
};

} // namespace tallowmere
