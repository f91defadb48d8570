#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTreeWidget>

namespace tallowmere {

/// "Restore": what a backup would change, part by part, each with a box that takes it or leaves it.
class frmRestore : public QDialog {
    Q_OBJECT
public:
    /// What one part would become, by the names of what is in it.
    struct Row {
        QString part;
        QStringList fresh, changed, gone;
        QString warning; ///< shown below it
        bool isChosen;   ///< at first; a part that would not change cannot be chosen
    };

    frmRestore(QWidget* parent, const QString& source);

    void AddRow(const Row& row);

    /// Whether the user takes the part of a row, counted from 0.
    bool IsChosen(int row) const;

    QLabel* lblSource;
    QTreeWidget* lstChanges;
    QPushButton* cmdRestore;
    QPushButton* cmdCancel;

    enum Column { Part, New, Changed, Gone };

private:
    void ShowButton();
};

} // namespace tallowmere
