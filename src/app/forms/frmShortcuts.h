#pragma once

#include <QDialog>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace tallowmere {

/// "Keyboard Shortcuts": every command with its shortcuts, and a box that takes other keys for the
/// selected one.
class frmShortcuts : public QDialog {
    Q_OBJECT
public:
    explicit frmShortcuts(QWidget* parent);

    QLineEdit* txtFind; ///< only rows that hold all of its words are shown
    QTreeWidget* lstCommands;
    QLabel* lblCommand; ///< the selected row
    QKeySequenceEdit* txtKeys;
    QLabel* lblMessage; ///< what the keys in the box lead to, or what came of the last button
    QPushButton* cmdSet;
    QPushButton* cmdAdd;
    QPushButton* cmdRemove;
    QPushButton* cmdReset;
    QPushButton* cmdResetAll;
    QPushButton* cmdClose;

    enum Column { Command, Menu, Keys, Origin };

    /// The selected row, null when there is none.
    QTreeWidgetItem* Selected() const;

    /// Shows or hides each row by the words in the box; the selection stays or goes to the first.
    void Filter();

private:
    void Arrange();
    QLabel* Label(const QString& name);
};

} // namespace tallowmere
