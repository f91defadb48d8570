#include "app/forms/frmCustom.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "core/custom/custom_link.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAddressCharacters = 60; ///< of an address that are in view at once

QLabel* HelpText(std::string_view text, QWidget* parent) {
    auto* label = new QLabel(ToQt(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    return label;
}

} // namespace

frmCustom::frmCustom(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmCustom"_s);
    setWindowTitle(ToQt(kEditorCaption));

    txtTitle = Box(u"txtTitle"_s, u"Title"_s);
    txtTitle->setMaxLength(static_cast<int>(kLongestTitle));
    txtURL = Box(u"txtURL"_s, u"URL"_s);
    txtURL->setMaxLength(1 << 20);
    txtURL->setMinimumWidth(fontMetrics().averageCharWidth() * kAddressCharacters);
    lblExamp = new Chip(u"lblExamp"_s, -1, ToQt(kEmptyCustomCaption), this);
    lblExamp->setFocusPolicy(Qt::NoFocus);
    lblExamp->setAttribute(Qt::WA_TransparentForMouseEvents);
    lblExamp->setAccessibleDescription(u"Sample of the link"_s);
    Command4 = Button(u"Command4"_s, u"Current &Page"_s);
    Command5 = Button(u"Command5"_s, u"&Text Color"_s);
    Command6 = Button(u"Command6"_s, u"&Background Color"_s);
    cmdMulti = Button(u"cmdMulti"_s, u"&Multi Link"_s);
    Command1 = Button(u"Command1"_s, u"&Reset"_s);
    Command2 = Button(u"Command2"_s, u"&Save"_s);
    Command3 = Button(u"Command3"_s, u"&Cancel"_s);
    Command2->setDefault(true);
    connect(Command3, &QPushButton::clicked, this, &QDialog::reject);

    auto* titleLabel = new QLabel(u"T&itle :"_s, this);
    titleLabel->setBuddy(txtTitle);
    auto* addressLabel = new QLabel(u"&URL :"_s, this);
    addressLabel->setBuddy(txtURL);
    auto* colors = new QHBoxLayout;
    colors->addWidget(new QLabel(u"Sample :"_s, this));
    colors->addWidget(lblExamp);
    colors->addStretch(1);
    colors->addWidget(Command5);
    colors->addWidget(Command6);
    auto* fields = new QGridLayout;
    fields->addWidget(titleLabel, 0, 0);
    fields->addWidget(txtTitle, 0, 1);
    fields->addLayout(colors, 0, 2, 1, 2);
    fields->addWidget(addressLabel, 1, 0);
    fields->addWidget(txtURL, 1, 1, 1, 2);
    fields->addWidget(Command4, 1, 3);
    fields->setColumnStretch(2, 1);
    fields->setHorizontalSpacing(2 * fields->horizontalSpacing());

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Command1);
    buttons->addWidget(cmdMulti);
    buttons->addStretch(1);
    buttons->addWidget(Command2);
    buttons->addWidget(Command3);

    auto* all = new QVBoxLayout(this);
    all->addLayout(fields);
    all->addWidget(HelpText(kCustomLinkHelp, this));
    all->addWidget(HelpText(kMultiLinkHelp, this));
    all->addStretch(1);
    all->addLayout(buttons);
}

QPushButton* frmCustom::Button(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove(u'&'));
    button->setAutoDefault(false);
    return button;
}

QLineEdit* frmCustom::Box(const QString& name, const QString& accessibleName) {
    auto* box = new QLineEdit(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    return box;
}

} // namespace tallowmere
