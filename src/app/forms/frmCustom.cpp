#include "app/forms/frmCustom.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "app/forms/DialogParts.h"
#include "core/custom/custom_link.h"

#include <QBoxLayout>
#include <QEvent>
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
    BuildControls();
    LayOut();
}

void frmCustom::BuildControls() {
    txtTitle = Box(u"txtTitle"_s, u"Title"_s);
    txtTitle->setMaxLength(static_cast<int>(kLongestTitle));
    txtURL = Box(u"txtURL"_s, u"URL"_s);
    txtURL->setMaxLength(1 << 20);
    txtURL->setMinimumWidth(fontMetrics().averageCharWidth() * kAddressCharacters);
    txtTitle->installEventFilter(this);
    connect(txtTitle, &QLineEdit::textEdited, this, &frmCustom::EditTitle);
    connect(txtTitle, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_lastTitle = text; });
    m_expanded = new QLabel(this);
    m_expanded->setObjectName(u"lblExpanded"_s);
    m_expanded->setTextFormat(Qt::PlainText);
    m_expanded->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblExamp = new Chip(u"lblExamp"_s, -1, ToQt(kEmptyCustomCaption), this);
    lblExamp->setFocusPolicy(Qt::NoFocus);
    lblExamp->setAttribute(Qt::WA_TransparentForMouseEvents);
    lblExamp->setAccessibleDescription(u"Sample of the link"_s);
    Command4 = MakeButton(u"Command4"_s, u"Current &Page"_s, this);
    Command5 = MakeButton(u"Command5"_s, u"&Text Color"_s, this);
    Command6 = MakeButton(u"Command6"_s, u"&Background Color"_s, this);
    cmdMulti = MakeButton(u"cmdMulti"_s, u"&Multi Link"_s, this);
    cmdPlaceholder = MakeButton(u"cmdPlaceholder"_s, {}, this);
    cmdPlaceholder->hide();
    Command1 = MakeButton(u"Command1"_s, u"&Reset"_s, this);
    Command2 = MakeButton(u"Command2"_s, u"&Save"_s, this);
    Command3 = MakeButton(u"Command3"_s, u"&Cancel"_s, this);
    Command2->setDefault(true);
    connect(Command3, &QPushButton::clicked, this, &QDialog::reject);
}

void frmCustom::LayOut() {
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
    fields->addWidget(m_expanded, 2, 1, 1, 2);
    fields->addWidget(cmdPlaceholder, 2, 3);
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

void frmCustom::ShowExpanded(const QString& text) {
    m_expanded->setText(LineStart(text));
    m_expanded->setToolTip(LineStart(text));
}

void frmCustom::OfferPlaceholder(const QString& ticker) {
    cmdPlaceholder->setText(u"Use &for every ticker"_s);
    cmdPlaceholder->setAccessibleName(u"Use for every ticker"_s);
    cmdPlaceholder->setToolTip(u"Put a placeholder in place of "_s + ticker);
    cmdPlaceholder->setVisible(!ticker.isEmpty());
}

// The caption of an unused slot is no title: what is typed into it takes its place.
void frmCustom::EditTitle(const QString& text) {
    const QString unused = ToQt(kEmptyCustomCaption);
    const QString before = std::exchange(m_lastTitle, text);
    if (before != unused || text == unused)
        return;
    const qsizetype caret = txtTitle->cursorPosition();
    const qsizetype typed = text.size() - unused.size();
    if (typed > 0 && caret >= typed && QString(text).remove(caret - typed, typed) == unused)
        txtTitle->setText(text.mid(caret - typed, typed));
    else if (typed == -1 && QString(unused).remove(caret, 1) == text)
        txtTitle->clear();
}

// A click into the caption of an unused slot selects it, as the opening of the window does.
bool frmCustom::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtTitle && event->type() == QEvent::MouseButtonRelease &&
        txtTitle->text() == ToQt(kEmptyCustomCaption))
        txtTitle->selectAll();
    return QDialog::eventFilter(watched, event);
}

QLineEdit* frmCustom::Box(const QString& name, const QString& accessibleName) {
    auto* box = new QLineEdit(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    return box;
}

} // namespace tallowmere
