#pragma once

#include "app/forms/ListBox.h"
#include "core/tools/color_config.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include <array>

namespace tallowmere {

/// "Color Settings": the areas of the main window, a sample, and the buttons that change it.
class frmColor : public QDialog {
    Q_OBJECT
public:
    explicit frmColor(QWidget* parent);

    TextListBox* List1;
    QLabel* Label1;
    std::array<QPushButton*, 2> cmdFore{}; ///< 0 text, 1 background
    QPushButton* cmdReset;                 ///< gives the area its designed colours back
    QComboBox* cmbScheme;                  ///< colours for all areas at once
    QPushButton* cmdResetAll;              ///< the same for all areas
    QPushButton* cmdOK;
    QPushButton* cmdCancel; ///< closes the dialog, the colours being as they were before

    /// Shows colours on the sample.
    void ShowSample(const ColorPair& colors);

private:
    void BuildAreas();
    void LayOut();
};

} // namespace tallowmere
