#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace tallowmere {

/// "Sites": every link with its built address and where that leads today, and an entry box that
/// changes the row of the selected one.
class frmSites : public QDialog {
    Q_OBJECT
public:
    explicit frmSites(QWidget* parent);

    QLabel* lblNote;    ///< about the mode of the program, and what is wrong with the user's file
    QLineEdit* txtFind; ///< only rows that hold all of its words are shown
    QTreeWidget* lstSites;
    QLabel* lblSite; ///< the selected row
    QLineEdit* txtAddress;
    QLabel* lblMessage; ///< what came of the last command
    QPushButton* cmdSave;
    QPushButton* cmdReset;
    QPushButton* cmdTry;
    QPushButton* cmdClose;

    enum Column { Link, Built, Today, Row };

    /// The selected row, null when there is none.
    QTreeWidgetItem* Selected() const;

private:
    void Arrange();
    QLabel* Label(const QString& name);
    void Filter();
};

} // namespace tallowmere
