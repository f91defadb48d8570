#include "app/forms/frmNav.h"

#include <QCompleter>
#include <QHBoxLayout>
#include <QLineEdit>

namespace tallowmere {

using namespace Qt::StringLiterals;

frmNav::frmNav(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmNav"_s);
    setWindowTitle(u"Smart Navigate - Enter a URL or Site Name"_s);
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(u"Combo1"_s);
    Combo1->setAccessibleName(u"URL or Site Name"_s);
    Combo1->setEditable(true);
    Combo1->setInsertPolicy(QComboBox::NoInsert);
    Combo1->setMinimumContentsLength(45);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // Completion offers earlier entries in a list of its own and leaves what was typed alone.
    Combo1->completer()->setCompletionMode(QCompleter::PopupCompletion);
    Combo1->completer()->setFilterMode(Qt::MatchContains);
    Command1 = new QPushButton(u"&Go"_s, this);
    Command1->setObjectName(u"Command1"_s);
    Command1->setAccessibleName(u"Go"_s);
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    // Enter above the open list of completions reaches the entry box alone.
    connect(Combo1->lineEdit(), &QLineEdit::returnPressed, this, &QDialog::accept);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(Combo1, 1);
    layout->addWidget(Command1);
    Combo1->setFocus();
}

} // namespace tallowmere
