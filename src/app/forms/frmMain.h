#pragma once

#include "app/forms/Chip.h"
#include "app/forms/MainMenus.h"
#include "app/forms/StripBar.h"
#include "app/forms/TickerListBox.h"
#include "core/custom/custom_link.h"
#include "core/links/catalogue.h"
#include "core/shell/window_layout.h"

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QScrollArea>

#include <array>
#include <memory>

namespace tallowmere {

class BrowserPane;
class CommandKeys;
class EngineProfile;
class Grip;
class Prompts;
class TabRow;
class UndoBar;

/// The side panels of the main window as the user left them; sizes are in pixels, 0 for those that
/// suit the window.
struct PanelSizes {
    int leftWidth = 0;
    int rightWidth = 0;
    int portfolioHeight = 0; ///< of the portfolio controls with their list
    bool leftFolded = false;
    bool rightFolded = false;
};

/// The main window: its controls under their names, and where they stand. What they do is the
/// controllers' business.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(EngineProfile& profile, Prompts& prompts, CommandKeys& keys);
    ~frmMain() override;

    // Portfolio controls.
    std::array<Chip*, 11> lblListNum{}; ///< 1 to 10; element 0 is not used
    Chip* lblPort;
    QLineEdit* txtStock;
    Chip* Label1;
    TickerListBox* List1;
    UndoBar* undoBar;

    // Links.
    std::array<Chip*, kLinkCount> lbllink{};
    QScrollArea* fraTop;
    QScrollArea* fraLeft;
    QScrollArea* fraRight;

    // Panes.
    BrowserPane* Web;
    BrowserPane* WebB;
    TabRow* tabRow; ///< above the panes, while there are further ones
    QFrame* fraTick;
    BrowserPane* WebTick;
    QLabel* WebStatus;
    QLabel* lblStat;
    StripBar* SpooBar;

    std::unique_ptr<MainMenus> menus;

    /// Runs the layout; needed after a change of what is shown.
    void LayOut();

    /// Puts a record of the user's own links on its label; colours that are not set stay.
    void ShowCustomLink(const CustomLinkRecord& record, int slot);

    /// Pops a menu up at the pointer, or below the control that has the focus when the keyboard
    /// asked for it.
    void PopUp(QMenu* menu);

    /// A further pane in the place of `Web` and `WebB`, not in front.
    BrowserPane* AddPane();
    /// Takes a further pane away; it ends when nothing uses it any more.
    void RemovePane(BrowserPane* pane);
    const QList<BrowserPane*>& FurtherPanes() const { return m_furtherPanes; }
    /// `Web`, `WebB` and the further ones.
    QList<BrowserPane*> Panes() const { return QList<BrowserPane*>{Web, WebB} + m_furtherPanes; }
    /// Shows or hides the row of tabs and makes room for it.
    void ShowTabs(bool shown);

    /// Shows or hides the ticker strip and makes room for it.
    void ShowTicker(bool shown);

    /// Shows or hides the caption of the portfolio, and says so in its menu.
    void ShowPortfolioLabel(bool shown);

    /// Shows a bar over the lower edge of the panes until it is deleted. Nothing else moves: the
    /// next click may follow at once, on what is under the pointer now.
    void ShowOverPanes(QWidget* bar);

    /// Shows nothing but the panes, or everything again that is to be shown.
    void ShowPanesAlone(bool alone);

    /// Whether the links say more about themselves when the pointer rests on them.
    void SetToolTips(bool shown);
    bool ShowsToolTips() const { return m_toolTips; }

    /// The background of the window and the link frames.
    void SetBackground(const QColor& color);

    const PanelSizes& Panels() const { return m_panels; }
    void SetPanels(const PanelSizes& panels);

Q_SIGNALS:
    /// The user wants to close the window; who sets `mayClose` to false keeps it open.
    void CloseWanted(bool* mayClose);
    /// The window is about to close; the program ends.
    void Closing();
    /// The pointer moved over the window's own surface: its horizontal position and the window's
    /// outer width, in twips.
    void PointerMoved(int x, int width);
    void PanelsChanged();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildPortfolioControls();
    void BuildLinks();
    void BuildPanes();
    BrowserPane* MakePane(const QString& name, const QString& accessibleName, QWidget* parent);
    QScrollArea* MakePanel(QScrollArea* panel, const QString& name, const QString& accessibleName);
    void LayOutPortfolio(const QRect& area);
    void LayOutUndoBar();
    int PortfolioHeight(int rows) const;
    void ConnectGrips();
    void ApplyFont();
    void PlaceOverPanes();
    void TellPointer(const QPoint& globalPosition);

    EngineProfile& m_profile;
    Prompts& m_prompts;
    QList<BrowserPane*> m_furtherPanes;
    int m_panesMade = 0; ///< further ones, for their names
    QWidget* m_body;
    QWidget* m_controls; ///< all of the body but the panes, which lie above it
    Grip* m_leftGrip;
    Grip* m_rightGrip;
    Grip* m_listGrip;
    QPointer<QWidget> m_overPanes;
    PanelSizes m_panels;
    bool m_toolTips = true;
    bool m_hasSize = false;
};

} // namespace tallowmere
