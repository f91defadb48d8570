#pragma once

#include "core/shell/commands.h"

#include <QAction>
#include <QMenu>

#include <array>
#include <map>

class QMainWindow;

namespace tallowmere {

class CommandKeys;
class WindowCommands;

/// A submenu whose ten items are the portfolios; item 0 is not used.
struct PortfolioMenu {
    QMenu* menu = nullptr;
    std::array<QAction*, 11> items{};
};

/// The menus and commands of the main window that are not site menus, by their control names. The
/// commands, their captions, keys and order are those of the table of commands. The popup menus and
/// the menu bar share them, so that nothing is reached by right-click alone.
class MainMenus {
public:
    MainMenus(QMainWindow& window, CommandKeys& keys);

    /// The command of that name in the table; throws std::out_of_range when there is none.
    QAction* At(std::string_view name) const;

    /// The same for one that is awaited: from now on it is in its menu and has its shortcut.
    QAction* Offer(std::string_view name) const;

    /// The shortcuts of all windows.
    CommandKeys& Keys() const { return m_keys; }

    // The ticker list's popup menu.
    QMenu* mnuRightTick;
    QAction* mnuDeleteTick;
    PortfolioMenu mnuMovePort;
    PortfolioMenu mnuCopyPort;
    QMenu* mnuTickNote;
    QAction* mnuTickNotes; ///< the text of the note, in its menu
    QAction* mnuCopyIt;
    PortfolioMenu mnuMoveAllPort;
    PortfolioMenu mnuCopyAllPort;
    QAction* mnuCopyAll;

    /// The headings of the submenus.
    QAction* mnuMoveit() const { return mnuMovePort.menu->menuAction(); }
    QAction* mnuCopyTo() const { return mnuCopyPort.menu->menuAction(); }
    QAction* mnuMoveAll() const { return mnuMoveAllPort.menu->menuAction(); }
    QAction* mnuCopyAllPorts() const { return mnuCopyAllPort.menu->menuAction(); }

    // The portfolio options menu.
    QMenu* mnuPortOptions;
    QAction* portfolioHeading;            ///< on top of it: the portfolio that it acts on
    std::array<QAction*, 4> mnuPortOpt{}; ///< 1 rename, 3 labels; 0 and 2 are not used
    QAction* mnuViewPort;
    QAction* mnuPrintPort;
    QAction* mnuImptTick;
    QAction* mnuRefresh;
    QAction* clearList;

    // Commands of the menu bar alone.
    QAction* undo;
    QAction* redo;
    QAction* exit;
    QAction* goToTicker;
    QAction* openLast;
    QAction* openOutside;
    QAction* foldLeft;
    QAction* foldRight;
    std::array<QAction*, 3> textSizes{}; ///< as in kTextSizes
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* zoomReset;
    QAction* findInPage;
    QAction* copyBuilt;
    QAction* sites;
    QAction* siteData;
    QAction* help;
    QAction* about;
    std::array<QAction*, 11> selectPortfolio{};
    /// Commands that are a click on a link, by its index.
    QList<std::pair<QAction*, int>> links;

    // Menus of the menu bar that are filled anew when they open.
    QMenu* portfolioMenu;
    QMenu* tickerMenu;
    QMenu* backMenu;    ///< the pages that Back leads to
    QMenu* forwardMenu; ///< the pages that Forward leads to
    QMenu* linkMenu;    ///< of the link that has the focus or was used last

private:
    PortfolioMenu Targets(const QString& array, std::string_view name);
    void NameCommands();
    void BuildSubmenus();
    void BuildTickerMenu();
    void BuildOptionsMenu();
    void BuildMenuBar();

    QMainWindow& m_window;
    CommandKeys& m_keys;
    WindowCommands* m_commands;
    std::map<CommandMenu, QMenu*> m_menus;
    std::map<std::string_view, QMenu*> m_submenus; ///< by the name of their row
};

} // namespace tallowmere
