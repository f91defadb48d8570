#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;

namespace tallowmere {

class BrowserPane;
class ChangeBar;
class CommandKeys;
class EngineProfile;
class Prompts;
class WindowCommands;

/// A watch window: its controls under their names.
class frmWiz : public QWidget {
    Q_OBJECT
public:
    frmWiz(EngineProfile& profile, Prompts& prompts, CommandKeys& keys);

    QLineEdit* Text1;   ///< the address
    QLineEdit* txtsecs; ///< seconds between two loads
    QPushButton* cmdSubmit;
    BrowserPane* Web;
    ChangeBar* barChange;
    QLabel* lblTimes; ///< when the page was loaded, and when it will be again
    QMenu* mnuPoP;
    QMenu* mnuChanges;
    QAction* mnuExport;
    WindowCommands* commands;

Q_SIGNALS:
    /// The window is about to close.
    void Closing();
    void SecondsLeft();

protected:
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Arrange();
};

} // namespace tallowmere
