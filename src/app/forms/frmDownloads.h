#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include <optional>

namespace tallowmere {

/// "Downloads": the files that were saved from pages, with what can be done about them.
class frmDownloads : public QDialog {
    Q_OBJECT
public:
    explicit frmDownloads(QWidget* parent);

    QTreeWidget* lstFiles;
    QLabel* lblMessage; ///< why something cannot be done with the selected file
    QPushButton* cmdOpen;
    QPushButton* cmdFolder;
    QPushButton* cmdCancel;
    QPushButton* cmdAgain;
    QPushButton* cmdRemove;
    QPushButton* cmdClose;

    enum Column { File, Progress, Text };

    /// Puts into a row how far its file is: 0 to 100, none for not known.
    static void SetPercent(QTreeWidgetItem& row, std::optional<int> percent);

Q_SIGNALS:
    /// The key Delete was pressed in the list.
    void DeleteKey();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
};

} // namespace tallowmere
