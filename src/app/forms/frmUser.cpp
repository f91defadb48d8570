#include "app/forms/frmUser.h"

#include "app/forms/DialogParts.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QMouseEvent>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

struct ButtonRow {
    std::size_t index;
    const char* caption;
};

// clang-format off
constexpr std::array<ButtonRow, 5> kButtons{{
    {0, "&OK"},
    {1, "Set &Colors"},
    {2, "&Help"},
    {4, "&Purge Ticker Notes"},
    {5, "&Set Startup Page"},
}};
// clang-format on

QString Notice() {
    return u"All data displayed originates from the respective website.  You are responsible for "
           "any investment decisions you make based on web pages viewed with this program.  All "
           "data is the property of the respective website and shall not be used outside of the "
           "limits imposed by that web sites policies. If you find a link or feature that "
           "no-longer works, please let us know so that it can be fixed or replaced."_s;
}

} // namespace

frmUser::frmUser(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmUser"_s);
    setWindowTitle(u"Browser Setup & Help"_s);
    chkFire = Check(u"chkFire"_s, u"Firewall / AOL"_s);
    txtFire = Field(u"txtFire"_s, u"Proxy Server IP"_s);
    txtMNLogin = Field(u"txtMNLogin"_s, u"Login"_s);
    txtMNPwd = Field(u"txtMNPwd"_s, u"Password"_s);
    txtMNPwd->setEchoMode(QLineEdit::Password);
    chkTick = Check(u"chkTick"_s, u"Ticker"_s);
    chkToolTips = Check(u"chkToolTips"_s, u"Tool Tips"_s);
    chkActive = Check(u"chkActive"_s, u"Active Edges"_s);
    chkKeep = Check(u"chkKeep"_s, u"Open Pages Again at Start"_s);
    chkSA = Check(u"chkSA"_s, u"Societe Anonyme Member"_s);
    chkSA->hide();

    const QString report =
        u"Click here to report any problems, concerns, suggestions or invalid links."_s;
    Label5 = new QPushButton(report, this);
    Label5->setObjectName(u"Label5"_s);
    Label5->setAccessibleName(report);
    Label5->setFlat(true);
    Label5->setAutoDefault(false);
    Label5->setCursor(Qt::PointingHandCursor);
    QPalette link = Label5->palette();
    link.setColor(QPalette::ButtonText, link.color(QPalette::Link));
    Label5->setPalette(link);
    QFont underlined = Label5->font();
    underlined.setUnderline(true);
    Label5->setFont(underlined);

    lblNotice = new QLabel(Notice(), this);
    lblNotice->setObjectName(u"lblNotice"_s);
    lblNotice->setTextFormat(Qt::PlainText);
    lblNotice->setWordWrap(true);
    BuildButtons();
    Arrange();
}

QCheckBox* frmUser::Check(const QString& name, const QString& caption) {
    auto* check = new QCheckBox(caption, this);
    check->setObjectName(name);
    check->setAccessibleName(caption);
    return check;
}

QLineEdit* frmUser::Field(const QString& name, const QString& accessibleName) {
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
    field->setAccessibleName(accessibleName);
    field->setMinimumWidth(24 * fontMetrics().averageCharWidth());
    return field;
}

void frmUser::BuildButtons() {
    for (const ButtonRow& row : kButtons) {
        cmdOK.at(row.index) = MakeButton(u"cmdOK"_s + QString::number(row.index),
                                         QString::fromLatin1(row.caption), this);
    }
    cmdOK[0]->setDefault(true);
    cmdOK[2]->installEventFilter(this);
}

void frmUser::Arrange() {
    auto* connection = new QGroupBox(u"Connection"_s, this);
    auto* connectionRows = new QFormLayout(connection);
    connectionRows->addRow(chkFire);
    connectionRows->addRow(u"Proxy Server IP"_s, txtFire);

    auto* login = new QGroupBox(u"Streaming Quotes"_s, this);
    auto* loginRows = new QFormLayout(login);
    loginRows->addRow(u"Login"_s, txtMNLogin);
    loginRows->addRow(u"Password"_s, txtMNPwd);

    auto* view = new QGroupBox(u"View"_s, this);
    auto* viewRows = new QGridLayout(view);
    viewRows->addWidget(chkTick, 0, 0);
    viewRows->addWidget(chkToolTips, 0, 1);
    viewRows->addWidget(chkActive, 0, 2);
    viewRows->addWidget(chkKeep, 1, 0, 1, 3);
    viewRows->addWidget(chkSA, 2, 0, 1, 3);
    viewRows->setColumnStretch(2, 1);

    auto* buttons = new QHBoxLayout;
    for (const std::size_t index : {5U, 1U, 4U, 2U})
        buttons->addWidget(cmdOK[index]);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK[0]);

    auto* layout = new QGridLayout(this);
    layout->addWidget(connection, 0, 0);
    layout->addWidget(login, 0, 1);
    layout->addWidget(view, 1, 0, 1, 2);
    layout->addWidget(lblNotice, 2, 0, 1, 2);
    layout->addWidget(Label5, 3, 0, 1, 2, Qt::AlignLeft);
    layout->addLayout(buttons, 4, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(2, 1);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    // The fields were made in the order in which Tab goes; the buttons stand in another.
    QWidget* before = Label5;
    for (const std::size_t index : {5U, 1U, 4U, 2U, 0U}) {
        setTabOrder(before, cmdOK[index]);
        before = cmdOK[index];
    }
}

bool frmUser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
        Q_EMIT HelpRightReleased();
    return QDialog::eventFilter(watched, event);
}

} // namespace tallowmere
