#include "app/forms/frmSites.h"

#include "app/forms/DialogParts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 150; // characters
constexpr int kLines = 32;
constexpr int kLinkWidth = 28;

bool HoldsAll(const QTreeWidgetItem& item, const QStringList& words) {
    const QString text = item.text(frmSites::Link) + u' ' + item.text(frmSites::Built) + u' ' +
                         item.text(frmSites::Today) + u' ' + item.text(frmSites::Row) + u' ' +
                         item.toolTip(frmSites::Link);
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

frmSites::frmSites(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmSites"_s);
    setWindowTitle(u"Sites"_s);
    lblNote = Label(u"lblNote"_s);
    txtFind = new QLineEdit(this);
    txtFind->setObjectName(u"txtFind"_s);
    txtFind->setAccessibleName(u"Find"_s);
    txtFind->setPlaceholderText(u"Part of a name or an address"_s);
    txtFind->setClearButtonEnabled(true);
    lstSites = new QTreeWidget(this);
    lstSites->setObjectName(u"lstSites"_s);
    lstSites->setAccessibleName(u"Sites"_s);
    lstSites->setHeaderLabels({u"Link"_s, u"Built Address"_s, u"Leads Today to"_s, u"Row"_s});
    lstSites->setRootIsDecorated(false);
    lstSites->setUniformRowHeights(true);
    lstSites->setAlternatingRowColors(true);
    lblSite = Label(u"lblSite"_s);
    txtAddress = new QLineEdit(this);
    txtAddress->setObjectName(u"txtAddress"_s);
    txtAddress->setAccessibleName(u"Leads today to"_s);
    lblMessage = Label(u"lblMessage"_s);
    QFont bold = font();
    bold.setBold(true);
    lblMessage->setFont(bold);
    cmdSave = MakeButton(u"cmdSave"_s, u"&Save"_s, this);
    cmdReset = MakeButton(u"cmdReset"_s, u"Use Shipped &Row"_s, this);
    cmdTry = MakeButton(u"cmdTry"_s, u"&Try"_s, this);
    cmdClose = MakeButton(u"cmdClose"_s, u"&Close"_s, this);
    Arrange();
    connect(txtFind, &QLineEdit::textChanged, this, &frmSites::Filter);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

QLabel* frmSites::Label(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void frmSites::Arrange() {
    auto* find = new QLabel(u"&Find:"_s, this);
    find->setBuddy(txtFind);
    auto* findRow = new QHBoxLayout;
    findRow->addWidget(find);
    findRow->addWidget(txtFind, 1);

    auto* address = new QLabel(u"&Leads today to:"_s, this);
    address->setBuddy(txtAddress);
    auto* addressRow = new QHBoxLayout;
    addressRow->addWidget(address);
    addressRow->addWidget(txtAddress, 1);
    addressRow->addWidget(cmdSave);
    addressRow->addWidget(cmdReset);
    auto* hint = Label(u"lblHint"_s);
    hint->setText(u"In an address {upper}, {lower} and {first} stand for the ticker and its first "
                  "letter, {yahoo} for the finance portal's spelling, {list} for several tickers. "
                  "\"portal:\" alone is the portal of the program; empty means as built."_s);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblMessage, 1);
    buttons->addWidget(cmdTry);
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblNote);
    layout->addLayout(findRow);
    layout->addWidget(lstSites, 1);
    layout->addWidget(lblSite);
    layout->addLayout(addressRow);
    layout->addWidget(hint);
    layout->addLayout(buttons);

    const int character = fontMetrics().averageCharWidth();
    lstSites->setColumnWidth(Link, kLinkWidth * character);
    QHeaderView& header = *lstSites->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(Built, QHeaderView::Stretch);
    header.setSectionResizeMode(Today, QHeaderView::Stretch);
    header.setSectionResizeMode(Row, QHeaderView::ResizeToContents);
    ResizeWithinScreen(*this, kWidth, kLines);
    cmdSave->setEnabled(false);
    txtFind->setFocus();
}

QTreeWidgetItem* frmSites::Selected() const {
    QTreeWidgetItem* item = lstSites->currentItem();
    return item && !item->isHidden() ? item : nullptr;
}

void frmSites::Filter() {
    const QStringList words = txtFind->text().split(u' ', Qt::SkipEmptyParts);
    QTreeWidgetItem* first = nullptr;
    for (int n = 0; n < lstSites->topLevelItemCount(); ++n) {
        QTreeWidgetItem* item = lstSites->topLevelItem(n);
        item->setHidden(!HoldsAll(*item, words));
        if (!first && !item->isHidden())
            first = item;
    }
    if (!Selected())
        lstSites->setCurrentItem(first);
    if (first)
        lstSites->scrollToItem(Selected());
}

} // namespace tallowmere
