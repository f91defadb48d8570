#include "app/forms/frmWiz.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/ChangeBar.h"
#include "app/forms/ElidedLabel.h"
#include "app/forms/WindowCommands.h"

#include <QAction>
#include <QBoxLayout>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSecondsCharacters = 7;
constexpr int kLongestAddress = 1 << 20;

} // namespace

frmWiz::frmWiz(EngineProfile& profile, Prompts& prompts, CommandKeys& keys)
    : QWidget(nullptr, Qt::Window) {
    setObjectName(u"frmWiz"_s);

    Text1 = new QLineEdit(this);
    Text1->setObjectName(u"Text1"_s);
    Text1->setAccessibleName(u"Address"_s);
    Text1->setMaxLength(kLongestAddress);
    cmdSubmit = new QPushButton(u"&Submit"_s, this);
    cmdSubmit->setObjectName(u"cmdSubmit"_s);
    cmdSubmit->setAccessibleName(u"Submit"_s);
    cmdSubmit->setAutoDefault(true);
    txtsecs = new QLineEdit(this);
    txtsecs->setObjectName(u"txtsecs"_s);
    txtsecs->setAccessibleName(u"Refresh (Secs)"_s);
    txtsecs->setFixedWidth(fontMetrics().averageCharWidth() * (kSecondsCharacters + 2));
    txtsecs->installEventFilter(this);

    mnuPoP = new QMenu(this);
    mnuPoP->setObjectName(u"mnuPoP"_s);
    commands = new WindowCommands(*this, keys, kWatchWindow);
    mnuExport = commands->At("mnuExport");
    mnuPoP->addAction(mnuExport);
    mnuPoP->addSeparator();
    mnuChanges = new QMenu(u"&Changes"_s, this);
    mnuChanges->setObjectName(u"mnuChanges"_s);
    for (const char* name : {"tellChanges", "markedPart", "showChange"})
        mnuChanges->addAction(commands->At(name));
    mnuPoP->addMenu(mnuChanges);
    connect(commands->Offer("closeTab"), &QAction::triggered, this, &QWidget::close);

    Web = new BrowserPane(profile, prompts, this);
    Web->setObjectName(u"Web"_s);
    Web->setAccessibleName(u"Watched page"_s);
    barChange = new ChangeBar(this);
    lblTimes = new ElidedLabel({}, this);
    lblTimes->setObjectName(u"lblTimes"_s);
    Arrange();
}

void frmWiz::Arrange() {
    auto* secondsLabel = new QLabel(u"Refresh (Secs)"_s, this);
    secondsLabel->setBuddy(txtsecs);
    auto* exportButton = new QToolButton(this);
    exportButton->setDefaultAction(mnuExport);
    exportButton->setToolButtonStyle(Qt::ToolButtonTextOnly);
    exportButton->setFocusPolicy(Qt::TabFocus);
    exportButton->setAccessibleName(mnuExport->text());

    auto* changes = new QToolButton(this);
    changes->setObjectName(u"cmdChanges"_s);
    changes->setText(u"Changes"_s);
    changes->setAccessibleName(u"Changes"_s);
    changes->setMenu(mnuChanges);
    changes->setPopupMode(QToolButton::InstantPopup);
    changes->setFocusPolicy(Qt::TabFocus);

    auto* address = new QHBoxLayout;
    address->addWidget(Text1, 1);
    address->addWidget(cmdSubmit);
    address->addWidget(changes);
    auto* line = new QHBoxLayout;
    line->addWidget(secondsLabel);
    line->addWidget(txtsecs);
    line->addWidget(lblTimes, 1);
    line->addWidget(exportButton);
    auto* all = new QVBoxLayout(this);
    all->addLayout(address);
    all->addWidget(Web, 1);
    all->addWidget(barChange);
    all->addLayout(line);
    const int margin = all->spacing();
    all->setContentsMargins(margin, margin, margin, margin);
}

void frmWiz::closeEvent(QCloseEvent* event) {
    Q_EMIT Closing();
    QWidget::closeEvent(event);
}

void frmWiz::contextMenuEvent(QContextMenuEvent* event) {
    mnuPoP->popup(event->globalPos());
}

bool frmWiz::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtsecs && event->type() == QEvent::FocusOut)
        Q_EMIT SecondsLeft();
    return QWidget::eventFilter(watched, event);
}

} // namespace tallowmere
