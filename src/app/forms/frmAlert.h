#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tallowmere {

/// One alert: its ticker, what it waits for, and what its ticker stands at.
class frmAlert : public QDialog {
    Q_OBJECT
public:
    explicit frmAlert(QWidget* parent);

    QLineEdit* txtTicker;
    QComboBox* cboKind; ///< in the order of AlertKind
    QLineEdit* txtLimit;
    QLabel* lblPrice; ///< of the ticker now
    QLabel* lblWords; ///< what the alert says, or what is wrong with it
    QPushButton* cmdOk;
    QPushButton* cmdCancel;

    /// Says in words what the alert is or what is missing; it is stored only when it is whole.
    void Tell(const QString& words, bool isWhole);
    void TellPrice(const QString& words);

Q_SIGNALS:
    /// The user changed something.
    void Edited();

private:
    QLabel* Label(const QString& name);
    void ShowUnit();

    QLabel* m_limit;
};

} // namespace tallowmere
