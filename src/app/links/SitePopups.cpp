#include "app/links/SitePopups.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/PaneDeck.h"
#include "app/links/SearchMenu.h"
#include "core/links/menu_table.h"
#include "core/links/site_menus.h"
#include "core/sites/site_table.h"

#include <QGuiApplication>

namespace tallowmere {

using namespace Qt::StringLiterals;

SitePopups::SitePopups(frmMain& form, const SiteTable& sites, const MenuTable& addresses,
                       Prompts& prompts, const Clock& clock, LinkDispatch& dispatch,
                       PaneDeck& panes)
    : QObject(&form), m_form(form), m_sites(sites), m_addresses(addresses), m_prompts(prompts),
      m_clock(clock), m_dispatch(dispatch), m_panes(panes) {
    connect(&dispatch, &LinkDispatch::MenuRequested, this, &SitePopups::PopUp);
}

SearchMenu* SitePopups::Menu(const QString& name) {
    SearchMenu*& menu = m_menus[name];
    if (!menu)
        menu = Build(FromQt(name));
    return menu;
}

SearchMenu* SitePopups::Build(std::string_view name) {
    for (const SiteMenu& row : SiteMenus()) {
        if (row.name != name)
            continue;
        SearchMenu* menu = NewMenu(ToQt(name), row.caption);
        for (const SiteMenu& child : SiteMenus()) {
            if (child.parent == name)
                menu->addMenu(Menu(ToQt(child.name)));
        }
        for (const SiteMenuArray& array : SiteMenuArrays()) {
            if (array.menu == name)
                AddArray(menu, array.name);
        }
        if (row.parent.empty())
            Hold(menu);
        return menu;
    }
    return nullptr;
}

SearchMenu* SitePopups::NewMenu(const QString& name, std::string_view caption) {
    auto* menu = new SearchMenu(ToQt(caption), m_clock, &m_form);
    menu->setObjectName(name);
    // What the link was pressed with counts as well.
    connect(menu, &SearchMenu::Choosing, this, [this](PagePlace place) {
        if (IsTab(place) && m_panes.Next() == PagePlace::Pane)
            m_panes.OpenNext(place);
    });
    return menu;
}

void SitePopups::Hold(const QMenu* menu) {
    connect(menu, &QMenu::aboutToShow, this, [this] { Q_EMIT Held(true); });
    connect(menu, &QMenu::aboutToHide, this, [this] {
        Q_EMIT Held(false);
        // The choice, if there is one, comes right after. Without one the link that was pressed
        // with the right button has come to nothing, and the next page stays inside; unless that
        // button is down again, on another link.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (!(QGuiApplication::mouseButtons() & Qt::RightButton))
                    m_panes.OpenNextOutside(false);
            },
            Qt::QueuedConnection);
    });
}

void SitePopups::AddArray(QMenu* menu, std::string_view array) {
    bool filledAtRunTime = false;
    for (const SiteMenuItem& item : SiteMenuItems(array)) {
        const QString caption = MenuCaption(ToQt(item.caption));
        filledAtRunTime = filledAtRunTime || item.kind == MenuItemKind::Placeholder;
        if (item.kind == MenuItemKind::Heading) {
            SearchMenu* submenu = NewMenu({}, item.caption);
            menu->addMenu(submenu);
            AddArray(submenu, item.target);
            continue;
        }
        QAction* action =
            item.kind == MenuItemKind::Separator ? menu->addSeparator() : menu->addAction(caption);
        action->setObjectName(ToQt(array) +
                              (item.index > 0 ? QString::number(item.index) : QString()));
        connect(action, &QAction::triggered, this,
                [this, name = ToQt(array), index = item.index] { Choose(name, index); });
    }
    if (filledAtRunTime || array == "mnuBook")
        Q_EMIT RunTimeArrayBuilt(ToQt(array), menu);
}

void SitePopups::PopUp(const QString& name) {
    SearchMenu* menu = Menu(name);
    if (!menu)
        return;
    const QWidget* focus = m_form.focusWidget();
    if (!focus || focus->underMouse()) {
        menu->popup(QCursor::pos());
        return;
    }
    menu->popup(focus->mapToGlobal(focus->rect().bottomLeft()));
    menu->Select(0);
}

void SitePopups::Open(const QString& array, int index, PagePlace place, const QString& ticker) {
    m_panes.OpenNext(place);
    ChooseFor(array, index, ticker);
    m_panes.OpenNext(PagePlace::Pane);
}

void SitePopups::ChooseFor(const QString& array, int index, const QString& named) {
    const SiteMenuItem* item = FindSiteMenuItem(FromQt(array), index);
    if (!item)
        return;
    std::string ticker;
    if (item->kind == MenuItemKind::Ticker) {
        const auto forms = m_dispatch.FormsFor(named);
        if (!forms) {
            m_prompts.Message(u"Select a Ticker"_s, MessageTitle());
            return;
        }
        ticker = forms->lower;
    }
    const std::string address = SiteMenuAddress(FromQt(array), index, ticker, m_sites, m_addresses);
    if (!address.empty())
        m_panes.Navigate(ToQt(address));
}

} // namespace tallowmere
