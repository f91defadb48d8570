#include "app/forms/MainMenus.h"

#include "app/base/QtText.h"
#include "app/forms/NameMenu.h"
#include "core/tools/text_size.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>

#include <span>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

struct LinkCommand {
    int index;
    const char* caption;
    const char* shortcut;
};

// clang-format off
constexpr LinkCommand kNavigation[] = {
    {19, "&Back",         "Alt+Left"},
    {20, "&Forward",      "Alt+Right"},
    {100, "&Stop",        "Ctrl+."},
    {0,  "&Refresh",      "F5"},
    {43, "&Copy Address", "Ctrl+Shift+C"},
};
constexpr LinkCommand kTools[] = {
    {80,  "Smart &Navigate...",   "Ctrl+L"},
    {61,  "&Watch Wizard",        "Ctrl+W"},
    {211, "&Multi Link",          "Ctrl+M"},
    {45,  "&Reminders...",        "Ctrl+R"},
    {92,  "&Calculator",          ""},
    {66,  "&Setup && Help...",    "Ctrl+,"},
};
// clang-format on

} // namespace

MainMenus::MainMenus(QMainWindow& window) : m_window(window) {
    BuildCommands();
    BuildTickerMenu();
    BuildOptionsMenu();
    BuildMenuBar(*window.menuBar());
}

QAction* MainMenus::Command(const QString& name, const QString& caption, const QString& shortcut) {
    auto* action = new QAction(caption, &m_window);
    action->setObjectName(name);
    if (!shortcut.isEmpty())
        action->setShortcut(QKeySequence(shortcut));
    return action;
}

PortfolioMenu MainMenus::Targets(const QString& array, const QString& heading) {
    PortfolioMenu targets;
    targets.menu = new NameMenu(heading, &m_window);
    for (int n = 1; n <= 10; ++n) {
        auto* item = new QAction(&m_window);
        item->setObjectName(array + QString::number(n));
        targets.menu->addAction(item);
        targets.items[static_cast<std::size_t>(n)] = item;
    }
    return targets;
}

void MainMenus::BuildCommands() {
    mnuDeleteTick = Command(u"mnuDeleteTick"_s, u"Delete"_s);
    mnuMovePort = Targets(u"mnuMovePort"_s, u"Move to :"_s);
    mnuMoveit()->setObjectName(u"mnuMoveit"_s);
    mnuCopyPort = Targets(u"mnuCopyPort"_s, u"Copy to :"_s);
    mnuCopyTo()->setObjectName(u"mnuCopyTo"_s);
    mnuTickNotes = Command(u"mnuTickNotes"_s, {});
    mnuCopyIt = Command(u"mnuCopyIt"_s, {});
    mnuMoveAllPort = Targets(u"mnuMoveAllPort"_s, u"Move Portfolio to :"_s);
    mnuMoveAll()->setObjectName(u"mnuMoveAll"_s);
    mnuCopyAllPort = Targets(u"mnuCopyAllPort"_s, u"Copy Portfolio to :"_s);
    mnuCopyAllPorts()->setObjectName(u"mnuCopyAllPorts"_s);
    mnuCopyAll = Command(u"mnuCopyAll"_s, u"Copy All Portfolios"_s);
    mnuPortOpt[1] = Command(u"mnuPortOpt1"_s, u"Rename Portfolio"_s, u"F2"_s);
    mnuPortOpt[3] = Command(u"mnuPortOpt3"_s, u"View Portfolio Labels"_s);
    mnuPortOpt[3]->setCheckable(true);
    mnuViewPort = Command(u"mnuViewPort"_s, u"View Portfolio Report"_s, u"Ctrl+Shift+R"_s);
    mnuPrintPort = Command(u"mnuPrintPort"_s, u"Print Portfolio Report"_s, u"Ctrl+P"_s);
    mnuImptTick = Command(u"mnuImptTick"_s, u"Ticker Scan..."_s, u"Ctrl+I"_s);
    mnuRefresh = Command(u"mnuRefresh"_s, u"AutoRefresh"_s);
    mnuRefresh->setCheckable(true);
    clearList = Command(u"clearList"_s, u"Clear Ticker List..."_s, u"Ctrl+Shift+Del"_s);
    undo = Command(u"undo"_s, u"&Undo"_s, u"Ctrl+Z"_s);
    redo = Command(u"redo"_s, u"&Redo"_s, u"Ctrl+Shift+Z"_s);
    exit = Command(u"exit"_s, u"E&xit"_s, u"Ctrl+Q"_s);
    goToTicker = Command(u"goToTicker"_s, u"&Enter Tickers"_s, u"Ctrl+T"_s);
    openLast = Command(u"openLast"_s, u"&Open Last Link"_s, u"Ctrl+Return"_s);
    openOutside = Command(u"openOutside"_s, u"Open in Separate &Browser"_s);
    foldLeft = Command(u"foldLeft"_s, u"&Left Panel"_s, u"F7"_s);
    foldRight = Command(u"foldRight"_s, u"&Right Panel"_s, u"F8"_s);
    for (QAction* fold : {foldLeft, foldRight})
        fold->setCheckable(true);
    zoomIn = Command(u"zoomIn"_s, u"Zoom &In"_s, u"Ctrl++"_s);
    zoomOut = Command(u"zoomOut"_s, u"Zoom &Out"_s, u"Ctrl+-"_s);
    zoomReset = Command(u"zoomReset"_s, u"&Normal Size"_s, u"Ctrl+0"_s);
    findInPage = Command(u"findInPage"_s, u"&Find in Page..."_s, u"Ctrl+F"_s);
    copyBuilt = Command(u"copyBuilt"_s, u"Copy Built &Address"_s);
    sites = Command(u"sites"_s, u"S&ites..."_s);
    siteData = Command(u"siteData"_s, u"Site &Data..."_s);
    help = Command(u"help"_s, u"&Help"_s, u"F1"_s);
    about = Command(u"about"_s, u"&About Tallowmere"_s);
    for (int n = 1; n <= 10; ++n)
        selectPortfolio[static_cast<std::size_t>(n)] = Command(
            u"selectPortfolio"_s + QString::number(n), {}, u"Alt+"_s + QString::number(n % 10));
}

void MainMenus::BuildTickerMenu() {
    mnuTickNote = new QMenu(u"Note"_s, &m_window);
    mnuTickNote->menuAction()->setObjectName(u"mnuTickNote"_s);
    mnuTickNote->addAction(mnuTickNotes);

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
}

void MainMenus::BuildOptionsMenu() {
    mnuPortOptions = new NameMenu({}, &m_window);
    mnuPortOptions->setObjectName(u"mnuPortOptions"_s);
    portfolioHeading = Command(u"portfolioHeading"_s, {});
    portfolioHeading->setEnabled(false);
    mnuPortOptions->addAction(portfolioHeading);
    mnuPortOptions->addSeparator();
    mnuPortOptions->addAction(mnuPortOpt[1]);
    mnuPortOptions->addSeparator();
    mnuPortOptions->addAction(mnuPortOpt[3]);
    mnuPortOptions->addSeparator();
    mnuPortOptions->addActions({mnuViewPort, mnuPrintPort, mnuImptTick});
}

void MainMenus::BuildMenuBar(QMenuBar& bar) {
    const auto addLinks = [this](QMenu* menu, std::span<const LinkCommand> commands) {
        for (const LinkCommand& command : commands) {
            QAction* action = Command(u"link"_s + QString::number(command.index),
                                      QString::fromLatin1(command.caption),
                                      QString::fromLatin1(command.shortcut));
            menu->addAction(action);
            links.append({action, command.index});
        }
    };
    portfolioMenu = bar.addMenu(u"&Portfolio"_s);
    portfolioMenu->addActions({undo, redo});
    portfolioMenu->addSeparator();
    auto* select = new NameMenu(u"&Select"_s, &m_window);
    portfolioMenu->addMenu(select);
    for (int n = 1; n <= 10; ++n)
        select->addAction(selectPortfolio[static_cast<std::size_t>(n)]);
    portfolioMenu->addActions({mnuPortOpt[1], mnuPortOpt[3], clearList});
    portfolioMenu->addSeparator();
    portfolioMenu->addActions({mnuViewPort, mnuPrintPort, mnuImptTick});
    portfolioMenu->addSeparator();
    portfolioMenu->addActions({mnuCopyIt, mnuCopyAll, mnuMoveAll(), mnuCopyAllPorts()});
    portfolioMenu->addSeparator();
    portfolioMenu->addAction(exit);

    tickerMenu = bar.addMenu(u"&Ticker"_s);
    tickerMenu->addActions({goToTicker, openLast});
    tickerMenu->addSeparator();
    tickerMenu->addActions({mnuDeleteTick, mnuMoveit(), mnuCopyTo(), mnuTickNote->menuAction()});

    linkMenu = bar.addMenu(u"&Link"_s);
    linkMenu->addAction(openOutside);
    linkMenu->addSeparator();

    QMenu* page = bar.addMenu(u"Pa&ge"_s);
    addLinks(page, kNavigation);
    page->addAction(copyBuilt);
    page->addAction(mnuRefresh);
    page->addSeparator();
    page->addActions({findInPage, zoomIn, zoomOut, zoomReset});

    QMenu* view = bar.addMenu(u"&View"_s);
    view->addActions({foldLeft, foldRight});
    view->addSeparator();
    QMenu* sizes = view->addMenu(u"&Text Size"_s);
    auto* choice = new QActionGroup(sizes);
    for (std::size_t at = 0; at < kTextSizes.size(); ++at) {
        textSizes[at] =
            Command(u"textSize"_s + ToQt(kTextSizes[at].name), u"&"_s + ToQt(kTextSizes[at].name));
        textSizes[at]->setCheckable(true);
        choice->addAction(textSizes[at]);
        sizes->addAction(textSizes[at]);
    }

    QMenu* tools = bar.addMenu(u"T&ools"_s);
    addLinks(tools, kTools);
    tools->addSeparator();
    tools->addActions({sites, siteData});

    QMenu* helpMenu = bar.addMenu(u"&Help"_s);
    helpMenu->addActions({help, about});
}

} // namespace tallowmere
