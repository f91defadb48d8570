#pragma once

#include <QComboBox>
#include <QDialog>
#include <QPushButton>

namespace tallowmere {

/// "Smart Navigate": an address or the name of a site, with the entries of before.
class frmNav : public QDialog {
    Q_OBJECT
public:
    explicit frmNav(QWidget* parent);

    QComboBox* Combo1;
    QPushButton* Command1;
};

} // namespace tallowmere
