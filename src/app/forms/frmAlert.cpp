#include "app/forms/frmAlert.h"

#include "app/forms/DialogParts.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 60; // characters
constexpr int kLongestTyped = 60;
constexpr int kDayChange = 2; // in cboKind

} // namespace

frmAlert::frmAlert(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmAlert"_s);
    txtTicker = new QLineEdit(this);
    txtTicker->setObjectName(u"txtTicker"_s);
    txtTicker->setAccessibleName(u"Ticker"_s);
    cboKind = new QComboBox(this);
    cboKind->setObjectName(u"cboKind"_s);
    cboKind->setAccessibleName(u"Tell when"_s);
    cboKind->addItems({u"The price is at or above"_s, u"The price is at or below"_s,
                       u"The price moves in a day by (up or down)"_s});
    txtLimit = new QLineEdit(this);
    txtLimit->setObjectName(u"txtLimit"_s);
    for (QLineEdit* box : {txtTicker, txtLimit}) {
        box->setMaxLength(kLongestTyped);
        connect(box, &QLineEdit::textChanged, this, &frmAlert::Edited);
    }
    m_limit = new QLabel(this);
    m_limit->setBuddy(txtLimit);
    lblPrice = Label(u"lblPrice"_s);
    lblWords = Label(u"lblWords"_s);
    cmdOk = MakeButton(u"cmdOk"_s, u"&OK"_s, this);
    cmdOk->setDefault(true);
    cmdCancel = MakeButton(u"cmdCancel"_s, u"&Cancel"_s, this);

    auto* fields = new QFormLayout;
    fields->addRow(u"&Ticker:"_s, txtTicker);
    fields->addRow(QString(), lblPrice);
    fields->addRow(u"Tell &when:"_s, cboKind);
    fields->addRow(m_limit, txtLimit);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(lblWords);
    layout->addStretch();
    layout->addLayout(buttons);
    ShowUnit();
    resize(kWidth * fontMetrics().averageCharWidth(), sizeHint().height());
    connect(cboKind, &QComboBox::currentIndexChanged, this, [this] {
        ShowUnit();
        Q_EMIT Edited();
    });
    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

// Two lines have room, so that the dialog does not jump while somebody types.
QLabel* frmAlert::Label(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumHeight(2 * fontMetrics().lineSpacing());
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

void frmAlert::ShowUnit() {
    const bool isPercent = cboKind->currentIndex() == kDayChange;
    m_limit->setText(isPercent ? u"&Percent:"_s : u"&Price:"_s);
    txtLimit->setAccessibleName(isPercent ? u"Percent"_s : u"Price"_s);
}

void frmAlert::Tell(const QString& words, bool isWhole) {
    lblWords->setText(words);
    lblWords->setAccessibleName(words);
    cmdOk->setEnabled(isWhole);
}

void frmAlert::TellPrice(const QString& words) {
    lblPrice->setText(words);
    lblPrice->setAccessibleName(words);
}

} // namespace tallowmere
