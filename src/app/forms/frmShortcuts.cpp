#include "app/forms/frmShortcuts.h"

#include "app/forms/DialogParts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 96; // characters
constexpr int kLines = 30;
constexpr int kOriginWidth = 14;

bool HoldsAll(const QTreeWidgetItem& item, const QStringList& words) {
    const QString text = item.text(frmShortcuts::Command) + u' ' + item.text(frmShortcuts::Menu) +
                         u' ' + item.text(frmShortcuts::Keys) + u' ' +
                         item.text(frmShortcuts::Origin) + u' ' +
                         item.toolTip(frmShortcuts::Command);
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

frmShortcuts::frmShortcuts(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmShortcuts"_s);
    setWindowTitle(u"Keyboard Shortcuts"_s);
    txtFind = new QLineEdit(this);
    txtFind->setObjectName(u"txtFind"_s);
    txtFind->setAccessibleName(u"Find"_s);
    txtFind->setPlaceholderText(u"Part of a command or its keys"_s);
    txtFind->setClearButtonEnabled(true);
    lstCommands = new QTreeWidget(this);
    lstCommands->setObjectName(u"lstCommands"_s);
    lstCommands->setAccessibleName(u"Commands"_s);
    lstCommands->setHeaderLabels({u"Command"_s, u"Menu"_s, u"Shortcut"_s, u"Set by"_s});
    lstCommands->setRootIsDecorated(false);
    lstCommands->setUniformRowHeights(true);
    lstCommands->setAlternatingRowColors(true);
    lblCommand = Label(u"lblCommand"_s);
    QFont bold = font();
    bold.setBold(true);
    lblCommand->setFont(bold);
    txtKeys = new QKeySequenceEdit(this);
    txtKeys->setObjectName(u"txtKeys"_s);
    txtKeys->setAccessibleName(u"New shortcut"_s);
    lblMessage = Label(u"lblMessage"_s);
    cmdSet = MakeButton(u"cmdSet"_s, u"&Set"_s, this);
    cmdAdd = MakeButton(u"cmdAdd"_s, u"&Add"_s, this);
    cmdRemove = MakeButton(u"cmdRemove"_s, u"&No Shortcut"_s, this);
    cmdReset = MakeButton(u"cmdReset"_s, u"&Reset"_s, this);
    cmdResetAll = MakeButton(u"cmdResetAll"_s, u"Reset A&ll..."_s, this);
    cmdClose = MakeButton(u"cmdClose"_s, u"&Close"_s, this);
    Arrange();
    connect(txtFind, &QLineEdit::textChanged, this, &frmShortcuts::Filter);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

QLabel* frmShortcuts::Label(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void frmShortcuts::Arrange() {
    auto* find = new QLabel(u"&Find:"_s, this);
    find->setBuddy(txtFind);
    auto* findRow = new QHBoxLayout;
    findRow->addWidget(find);
    findRow->addWidget(txtFind, 1);

    auto* keys = new QLabel(u"New s&hortcut:"_s, this);
    keys->setBuddy(txtKeys);
    auto* keyRow = new QHBoxLayout;
    keyRow->addWidget(keys);
    keyRow->addWidget(txtKeys, 1);
    for (QPushButton* button : {cmdSet, cmdAdd, cmdRemove, cmdReset})
        keyRow->addWidget(button);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblMessage, 1);
    buttons->addWidget(cmdResetAll);
    buttons->addWidget(cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(findRow);
    layout->addWidget(lstCommands, 1);
    layout->addWidget(lblCommand);
    layout->addLayout(keyRow);
    layout->addLayout(buttons);

    const int character = fontMetrics().averageCharWidth();
    QHeaderView& header = *lstCommands->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(Command, QHeaderView::Stretch);
    header.setSectionResizeMode(Menu, QHeaderView::ResizeToContents);
    header.setSectionResizeMode(Keys, QHeaderView::ResizeToContents);
    header.setSectionResizeMode(Origin, QHeaderView::Fixed);
    lstCommands->setColumnWidth(Origin, kOriginWidth * character);
    ResizeWithinScreen(*this, kWidth, kLines);
    txtFind->setFocus();
}

QTreeWidgetItem* frmShortcuts::Selected() const {
    QTreeWidgetItem* item = lstCommands->currentItem();
    return item && !item->isHidden() ? item : nullptr;
}

void frmShortcuts::Filter() {
    const QStringList words = txtFind->text().split(u' ', Qt::SkipEmptyParts);
    QTreeWidgetItem* first = nullptr;
    for (int n = 0; n < lstCommands->topLevelItemCount(); ++n) {
        QTreeWidgetItem* item = lstCommands->topLevelItem(n);
        item->setHidden(!HoldsAll(*item, words));
        if (!first && !item->isHidden())
            first = item;
    }
    if (!Selected())
        lstCommands->setCurrentItem(first);
    if (first)
        lstCommands->scrollToItem(Selected());
}

} // namespace tallowmere
