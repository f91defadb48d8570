#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tallowmere {

/// "Import CSV": what a table would change, and which portfolio its tickers go to where it does not
/// say so.
class frmCsvImport : public QDialog {
    Q_OBJECT
public:
    frmCsvImport(QWidget* parent, const QStringList& portfolios);

    QLabel* lblForm;      ///< how the table was read
    QComboBox* cmbTarget; ///< the portfolios, in their order
    QPlainTextEdit* txtChanges;
    QPushButton* cmdImport;
    QPushButton* cmdCancel;
};

} // namespace tallowmere
