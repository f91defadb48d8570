#include "app/forms/frmTicImport.h"

#include "app/forms/DialogParts.h"
#include "app/forms/ListBox.h"

#include <QBoxLayout>
#include <QFocusEvent>
#include <QLabel>
#include <QPushButton>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLinkCharacters = 70; ///< of the sample that are in view at once
constexpr int kLongestLink = 1 << 20;

QString HelpText() {
    return u"Ticker Scan is used to quickly import lists of tickers on a web page into one of "
           "your portfolios. Copy one of the links to a ticker from the page that you see in the "
           "main window, paste it below and highlight the ticker within it. Scan then finds all "
           "tickers that stand in such links. Remove what you do not want from the list with the "
           "Delete key, and send the rest to your portfolio."_s;
}

} // namespace

// Leaving a line of text takes its selection away, and entering it by Tab selects all of it.
void SampleBox::KeepSelection(const std::function<void()>& change) {
    const int start = selectionStart();
    const int length = selectionLength();
    change();
    if (start >= 0)
        setSelection(start, length);
}

void SampleBox::focusInEvent(QFocusEvent* event) {
    KeepSelection([&] { QLineEdit::focusInEvent(event); });
}

void SampleBox::focusOutEvent(QFocusEvent* event) {
    KeepSelection([&] { QLineEdit::focusOutEvent(event); });
}

frmTicImport::frmTicImport(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmTicImport"_s);
    setWindowTitle(u"Ticker Scan"_s);
    txtFind = new SampleBox(this);
    txtFind->setObjectName(u"txtFind"_s);
    txtFind->setAccessibleName(u"Sample Link (Highlight Ticker)"_s);
    txtFind->setMaxLength(kLongestLink);
    txtFind->setMinimumWidth(fontMetrics().averageCharWidth() * kLinkCharacters);
    List1 = new TextListBox(u"List1"_s, u"Tickers found"_s, this);
    Command1 = MakeButton(u"Command1"_s, u"&Scan"_s, this);
    Command2 = MakeButton(u"Command2"_s, u"Send Tickers"_s, this);
    Command3 = MakeButton(u"Command3"_s, u"&Close"_s, this);
    Command1->setDefault(true);
    connect(Command3, &QPushButton::clicked, this, &QDialog::reject);
    Arrange();
    txtFind->setFocus();
}

void frmTicImport::Arrange() {
    auto* help = new QLabel(HelpText(), this);
    help->setTextFormat(Qt::PlainText);
    help->setWordWrap(true);
    auto* sampleLabel = new QLabel(u"Sample Link (Highlight Ticker)"_s, this);
    sampleLabel->setBuddy(txtFind);
    auto* sample = new QHBoxLayout;
    sample->addWidget(txtFind, 1);
    sample->addWidget(Command1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Command2);
    buttons->addStretch(1);
    buttons->addWidget(Command3);
    auto* all = new QVBoxLayout(this);
    all->addWidget(help);
    all->addWidget(sampleLabel);
    all->addLayout(sample);
    all->addWidget(List1, 1);
    all->addLayout(buttons);
}

} // namespace tallowmere
