#pragma once

#include <QAction>
#include <QMenu>

#include <array>

class QMainWindow;
class QMenuBar;

namespace tallowmere {

/// A submenu whose ten items are the portfolios; item 0 is not used.
struct PortfolioMenu {
    QMenu* menu = nullptr;
    std::array<QAction*, 11> items{};
};

/// The menus and commands of the main window that are not site menus, by their control names. The
/// popup menus and the menu bar share them, so that nothing is reached by right-click alone.
class MainMenus {
public:
    explicit MainMenus(QMainWindow& window);

    // The ticker list's popup menu.
    QMenu* mnuRightTick;
    QAction* mnuDeleteTick;
    PortfolioMenu mnuMovePort;
    PortfolioMenu mnuCopyPort;
    QMenu* mnuTickNote;
    QAction* mnuTickNotes;
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
    QMenu* linkMenu; ///< of the link that has the focus or was used last

private:
    QAction* Command(const QString& name, const QString& caption, const QString& shortcut = {});
    PortfolioMenu Targets(const QString& array, const QString& heading);
    void BuildCommands();
    void BuildTickerMenu();
    void BuildOptionsMenu();
    void BuildMenuBar(QMenuBar& bar);

    QMainWindow& m_window;
};

} // namespace tallowmere
