#include "links/SitePopups.h"

#include "forms/frmMain.h"
#include "links/LinkDispatch.h"
#include "links/PaneDeck.h"
#include "links/site_menus.h"
#include "shell/QtText.h"

#include <QMenu>

namespace tallowmere {

using namespace Qt::StringLiterals;

SitePopups::SitePopups(frmMain& form, MainState& state, const Services& services,
                       MenuTable addresses, LinkDispatch& dispatch, PaneDeck& panes)
    : QObject(&form), m_form(form), m_state(state), m_services(services),
      m_addresses(std::move(addresses)), m_dispatch(dispatch), m_panes(panes) {
    connect(&dispatch, &LinkDispatch::MenuRequested, this, &SitePopups::PopUp);
}

QMenu* SitePopups::Menu(const QString& name) {
    QMenu*& menu = m_menus[name];
    if (!menu)
        menu = Build(FromQt(name));
    return menu;
}

QMenu* SitePopups::Build(std::string_view name) {
    for (const SiteMenu& row : SiteMenus()) {
        if (row.name != name)
            continue;
        auto* menu = new QMenu(MenuCaption(ToQt(row.caption)), &m_form);
        menu->setObjectName(ToQt(name));
        menu->setAccessibleName(ToQt(row.caption));
        // A long menu scrolls instead of spilling over the screen in columns.
        menu->setStyleSheet(u"QMenu { menu-scrollable: 1; }"_s);
        for (const SiteMenu& child : SiteMenus()) {
            if (child.parent == name)
                menu->addMenu(Menu(ToQt(child.name)));
        }
        for (const SiteMenuArray& array : SiteMenuArrays()) {
            if (array.menu == name)
                AddArray(menu, array.name);
        }
        connect(menu, &QMenu::aboutToShow, this, [this] { Q_EMIT Held(true); });
        connect(menu, &QMenu::aboutToHide, this, [this] { Q_EMIT Held(false); });
        return menu;
    }
    return nullptr;
}

void SitePopups::AddArray(QMenu* menu, std::string_view array) {
    bool filledAtRunTime = false;
    for (const SiteMenuItem& item : SiteMenuItems(array)) {
        const QString caption = MenuCaption(ToQt(item.caption));
        filledAtRunTime = filledAtRunTime || item.kind == MenuItemKind::Placeholder;
        if (item.kind == MenuItemKind::Heading) {
            AddArray(menu->addMenu(caption), item.target);
            continue;
        }
        QAction* action =
            item.kind == MenuItemKind::Separator ? menu->addSeparator() : menu->addAction(caption);
        action->setObjectName(ToQt(array) + QString::number(item.index));
        connect(action, &QAction::triggered, this,
                [this, name = ToQt(array), index = item.index] { Choose(name, index); });
    }
    if (filledAtRunTime || array == "mnuBook")
        Q_EMIT RunTimeArrayBuilt(ToQt(array), menu);
}

void SitePopups::PopUp(const QString& name) {
    if (QMenu* menu = Menu(name))
        m_form.PopUp(menu);
}

void SitePopups::Choose(const QString& array, int index) {
    const SiteMenuItem* item = FindSiteMenuItem(FromQt(array), index);
    if (!item)
        return;
    std::string ticker;
    if (item->kind == MenuItemKind::Ticker) {
        const auto forms = m_dispatch.CurrentForms();
        if (!forms) {
            m_services.prompts.Message(u"Select a Ticker"_s, MessageTitle());
            return;
        }
        ticker = forms->lower;
    }
    const std::string address =
        SiteMenuAddress(FromQt(array), index, ticker, m_services.sites, m_addresses);
    if (!address.empty())
        m_panes.Navigate(ToQt(address));
}

} // namespace tallowmere
