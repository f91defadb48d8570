#include "app/forms/MainMenus.h"

#include "app/base/QtText.h"
#include "app/forms/NameMenu.h"
#include "app/forms/WindowCommands.h"
#include "core/tools/text_size.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>

namespace tallowmere {

using namespace Qt::StringLiterals;

MainMenus::MainMenus(QMainWindow& window, CommandKeys& keys)
    : m_window(window), m_keys(keys), m_commands(new WindowCommands(window, keys, kMainWindow)) {
    NameCommands();
    BuildSubmenus();
    BuildMenuBar();
    BuildTickerMenu();
    BuildOptionsMenu();
}

QAction* MainMenus::At(std::string_view name) const {
    return m_commands->At(name);
}

QAction* MainMenus::Offer(std::string_view name) const {
    return m_commands->Offer(name);
}

PortfolioMenu MainMenus::Targets(const QString& array, std::string_view name) {
    PortfolioMenu targets;
    targets.menu = new NameMenu(ToQt(FindCommand(name)->caption), &m_window);
    targets.menu->menuAction()->setObjectName(ToQt(name));
    for (int n = 1; n <= 10; ++n) {
        auto* item = new QAction(&m_window);
        item->setObjectName(array + QString::number(n));
        targets.menu->addAction(item);
        targets.items[static_cast<std::size_t>(n)] = item;
    }
    m_submenus[name] = targets.menu;
    return targets;
}

void MainMenus::NameCommands() {
    // clang-format off
    const std::pair<QAction**, std::string_view> named[] = {
        {&mnuDeleteTick,  "mnuDeleteTick"}, {&mnuCopyIt,    "mnuCopyIt"},
        {&mnuCopyAll,     "mnuCopyAll"},    {&mnuViewPort,  "mnuViewPort"},
        {&mnuPrintPort,   "mnuPrintPort"},  {&mnuImptTick,  "mnuImptTick"},
        {&mnuPortOpt[1],  "mnuPortOpt1"},   {&mnuPortOpt[3], "mnuPortOpt3"},
        {&mnuRefresh,     "mnuRefresh"},    {&clearList,    "clearList"},
        {&undo,           "undo"},          {&redo,         "redo"},
        {&exit,           "exit"},          {&goToTicker,   "goToTicker"},
        {&openLast,       "openLast"},      {&openOutside,  "openOutside"},
        {&foldLeft,       "foldLeft"},      {&foldRight,    "foldRight"},
        {&zoomIn,         "zoomIn"},        {&zoomOut,      "zoomOut"},
        {&zoomReset,      "zoomReset"},     {&findInPage,   "findInPage"},
        {&copyBuilt,      "copyBuilt"},     {&sites,        "sites"},
        {&siteData,       "siteData"},      {&help,         "help"},
        {&about,          "about"},
    };
    // clang-format on
    for (const auto& [action, name] : named)
        *action = At(name);
    for (int n = 1; n <= 10; ++n)
        selectPortfolio[static_cast<std::size_t>(n)] = At("selectPortfolio" + std::to_string(n));
    auto* sizes = new QActionGroup(&m_window);
    for (std::size_t at = 0; at < kTextSizes.size(); ++at)
        textSizes[at] = sizes->addAction(At(std::string("textSize").append(kTextSizes[at].name)));
    for (const CommandRow& row : Commands())
        if (row.link != kNotALink)
            links.append({At(row.name), row.link});
}

void MainMenus::BuildSubmenus() {
    mnuMovePort = Targets(u"mnuMovePort"_s, "mnuMoveit");
    mnuCopyPort = Targets(u"mnuCopyPort"_s, "mnuCopyTo");
    mnuMoveAllPort = Targets(u"mnuMoveAllPort"_s, "mnuMoveAll");
    mnuCopyAllPort = Targets(u"mnuCopyAllPort"_s, "mnuCopyAllPorts");
    mnuTickNotes = new QAction(&m_window);
    mnuTickNotes->setObjectName(u"mnuTickNotes"_s);
    mnuTickNote = new QMenu(ToQt(FindCommand("mnuTickNote")->caption), &m_window);
    mnuTickNote->menuAction()->setObjectName(u"mnuTickNote"_s);
    mnuTickNote->addAction(mnuTickNotes);
    m_submenus["mnuTickNote"] = mnuTickNote;
    const auto list = [this](std::string_view name) {
        auto* menu = new QMenu(ToQt(FindCommand(name)->caption), &m_window);
        menu->setObjectName(ToQt(name));
        m_submenus[name] = menu;
        return menu;
    };
    backMenu = list("backMenu");
    forwardMenu = list("forwardMenu");
    m_submenus["selectPortfolio"] =
        new NameMenu(ToQt(FindCommand("selectPortfolio")->caption), &m_window);
    m_menus[CommandMenu::Select] = m_submenus["selectPortfolio"];
    m_submenus["textSize"] = new QMenu(ToQt(FindCommand("textSize")->caption), &m_window);
    m_menus[CommandMenu::TextSize] = m_submenus["textSize"];
    m_submenus["quotesInList"] = new QMenu(ToQt(FindCommand("quotesInList")->caption), &m_window);
    m_menus[CommandMenu::ListQuotes] = m_submenus["quotesInList"];
}

void MainMenus::BuildTickerMenu() {
    mnuRightTick = new QMenu(&m_window);
    mnuRightTick->setObjectName(u"mnuRightTick"_s);
    mnuRightTick->addAction(mnuDeleteTick);
    mnuRightTick->addMenu(mnuMovePort.menu);
    mnuRightTick->addMenu(mnuCopyPort.menu);
    mnuRightTick->addMenu(mnuTickNote);
    mnuRightTick->addSeparator();
    mnuRightTick->addAction(mnuCopyIt);
    mnuRightTick->addMenu(mnuMoveAllPort.menu);
    mnuRightTick->addMenu(mnuCopyAllPort.menu);
    mnuRightTick->addAction(mnuCopyAll);
    mnuRightTick->addSeparator();
    mnuRightTick->addAction(At("addAlert"));
}

void MainMenus::BuildOptionsMenu() {
    mnuPortOptions = new NameMenu({}, &m_window);
    mnuPortOptions->setObjectName(u"mnuPortOptions"_s);
    portfolioHeading = new QAction(&m_window);
    portfolioHeading->setObjectName(u"portfolioHeading"_s);
    portfolioHeading->setEnabled(false);
    mnuPortOptions->addAction(portfolioHeading);
    mnuPortOptions->addSeparator();
    mnuPortOptions->addAction(mnuPortOpt[1]);
    mnuPortOptions->addSeparator();
    mnuPortOptions->addAction(mnuPortOpt[3]);
    mnuPortOptions->addSeparator();
    mnuPortOptions->addActions({mnuViewPort, mnuPrintPort, mnuImptTick});
}

void MainMenus::BuildMenuBar() {
    for (const MenuRow& row : Menus())
        if (row.in == CommandMenu::None)
            m_menus[row.menu] = m_window.menuBar()->addMenu(ToQt(row.caption));
    std::map<CommandMenu, int> groups;
    for (const CommandRow& row : Commands()) {
        if (row.menu == CommandMenu::None)
            continue;
        QMenu* menu = m_menus.at(row.menu);
        if (const auto [last, isFirst] = groups.try_emplace(row.menu, row.group);
            !isFirst && last->second != row.group) {
            menu->addSeparator();
            last->second = row.group;
        }
        menu->addAction(row.kind == CommandKind::Submenu ? m_submenus.at(row.name)->menuAction()
                                                         : At(row.name));
    }
    portfolioMenu = m_menus.at(CommandMenu::Portfolio);
    tickerMenu = m_menus.at(CommandMenu::Ticker);
    linkMenu = m_menus.at(CommandMenu::Link);
    linkMenu->addSeparator();
}

} // namespace tallowmere
