#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace tallowmere {

/// "Browser Setup & Help": the user's own settings, and the way to colours, help and the support.
class frmUser : public QDialog {
    Q_OBJECT
public:
    explicit frmUser(QWidget* parent);

    QCheckBox* chkFire;
    QLineEdit* txtFire;
    QLineEdit* txtMNLogin;
    QLineEdit* txtMNPwd;
    QCheckBox* chkTick;
    QCheckBox* chkToolTips;
    QCheckBox* chkActive;
    QCheckBox* chkKeep;
    QCheckBox* chkSA; ///< hidden until the member gesture shows it
    QPushButton* Label5;
    QLabel* lblNotice;
    /// 0 OK, 1 colours, 2 help, 4 purge, 5 start page; element 3 is not used.
    std::array<QPushButton*, 6> cmdOK{};

Q_SIGNALS:
    /// The right mouse button was released on the help button.
    void HelpRightReleased();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QCheckBox* Check(const QString& name, const QString& caption);
    QLineEdit* Field(const QString& name, const QString& accessibleName);
    void BuildButtons();
    void Arrange();
};

} // namespace tallowmere
