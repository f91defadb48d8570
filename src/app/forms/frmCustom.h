#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace tallowmere {

class Chip;

/// The editor of one of the user's own links: its controls under their names.
class frmCustom : public QDialog {
    Q_OBJECT
public:
    explicit frmCustom(QWidget* parent);

    QLineEdit* txtTitle;
    QLineEdit* txtURL;
    Chip* lblExamp;        ///< the link as it will look
    QPushButton* Command1; ///< Reset
    QPushButton* Command2; ///< Save
    QPushButton* Command3; ///< Cancel
    QPushButton* Command4; ///< Current Page
    QPushButton* Command5; ///< Text Color
    QPushButton* Command6; ///< Background Color
    QPushButton* cmdMulti;

private:
    QPushButton* Button(const QString& name, const QString& caption);
    QLineEdit* Box(const QString& name, const QString& accessibleName);
};

} // namespace tallowmere
