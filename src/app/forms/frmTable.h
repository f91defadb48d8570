#pragma once

#include "core/links/page_place.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

#include <utility>

namespace tallowmere {

class CommandKeys;
class WindowCommands;

/// "Portfolio Table": the tickers of one or of all portfolios, a row each, with a line that filters
/// them. A window of its own beside the main window.
class frmTable : public QDialog {
    Q_OBJECT
public:
    /// `keys` are kept by reference.
    frmTable(QWidget* parent, CommandKeys& keys);

    WindowCommands* commands;
    QLineEdit* txtFilter;
    QComboBox* cmbScope; ///< 0 this portfolio, 1 all
    QPushButton* cmdColumns;
    QPushButton* cmdSort;
    QPushButton* cmdCopy;
    QPushButton* cmdPrint;
    QTableView* tblTickers;
    QLabel* lblState;
    QMenu* mnuColumns; ///< also that of the headings
    QMenu* mnuSort;

    /// Shows a model, which is kept by reference.
    void SetModel(QAbstractItemModel* model);

    /// The first and the last row that can be seen, -1 and -1 for none.
    std::pair<int, int> RowsInView() const;

Q_SIGNALS:
    /// A row was chosen by Enter or a double click.
    void Opened(int row, PagePlace place);
    /// The key that copies everywhere was pressed in the rows.
    void CopyKey();
    /// Other rows than before may be in sight.
    void SightChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeTable();
    void LayOut();
    void AddKeys();
    bool FilterKey(int key);
    void SetRowHeight();
};

} // namespace tallowmere
