#include "app/forms/frmCsvImport.h"

#include "app/forms/DialogParts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 72; // characters
constexpr int kLines = 24;

} // namespace

frmCsvImport::frmCsvImport(QWidget* parent, const QStringList& portfolios) : QDialog(parent) {
    setObjectName(u"frmCsvImport"_s);
    setWindowTitle(u"Import CSV"_s);
    lblForm = new QLabel(this);
    lblForm->setObjectName(u"lblForm"_s);
    lblForm->setTextFormat(Qt::PlainText);
    lblForm->setWordWrap(true);
    cmbTarget = new QComboBox(this);
    cmbTarget->setObjectName(u"cmbTarget"_s);
    cmbTarget->setAccessibleName(u"Portfolio of rows that name none"_s);
    cmbTarget->addItems(portfolios);
    // A long name must not widen the window.
    cmbTarget->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbTarget->setMinimumContentsLength(20);
    auto* caption = new QLabel(u"Rows without a &portfolio go to:"_s, this);
    caption->setBuddy(cmbTarget);
    txtChanges = new QPlainTextEdit(this);
    txtChanges->setObjectName(u"txtChanges"_s);
    txtChanges->setAccessibleName(u"What would change"_s);
    txtChanges->setReadOnly(true);
    txtChanges->setTabChangesFocus(true);
    cmdImport = MakeButton(u"cmdImport"_s, u"&Import"_s, this);
    cmdCancel = MakeButton(u"cmdCancel"_s, u"&Cancel"_s, this);
    cmdCancel->setDefault(true);

    auto* target = new QHBoxLayout;
    target->addWidget(caption);
    target->addWidget(cmbTarget, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdImport);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblForm);
    layout->addLayout(target);
    layout->addWidget(txtChanges, 1);
    layout->addLayout(buttons);
    ResizeWithinScreen(*this, kWidth, kLines);
    txtChanges->setFocus();
    connect(cmdImport, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

} // namespace tallowmere
