#include "app/forms/frmAlerts.h"

#include "app/base/FlowLayout.h"
#include "app/forms/DialogParts.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 120; // characters
constexpr int kLines = 26;
constexpr int kGap = 6;

} // namespace

frmAlerts::frmAlerts(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmAlerts"_s);
    setWindowTitle(u"Alerts"_s);
    lstAlerts = List(u"lstAlerts"_s, u"Alerts"_s,
                     {u"Ticker"_s, u"Tells when the price is"_s, u"State"_s, u"Price"_s});
    lstLog =
        List(u"lstLog"_s, u"What fired"_s,
             {u"Fired"_s, u"Ticker"_s, u"Alert"_s, u"Price"_s, u"Time and source of the price"_s});
    lstAlerts->installEventFilter(this);
    lblMessage = new QLabel(this);
    lblMessage->setObjectName(u"lblMessage"_s);
    lblMessage->setTextFormat(Qt::PlainText);
    lblMessage->setWordWrap(true);
    cmdAdd = MakeButton(u"cmdAdd"_s, u"&Add..."_s, this);
    cmdEdit = MakeButton(u"cmdEdit"_s, u"&Edit..."_s, this);
    cmdRemove = MakeButton(u"cmdRemove"_s, u"Re&move"_s, this);
    cmdReset = MakeButton(u"cmdReset"_s, u"&Reset"_s, this);
    cmdClose = MakeButton(u"cmdClose"_s, u"&Close"_s, this);
    auto* fired = new QLabel(u"What &fired:"_s, this);
    fired->setBuddy(lstLog);

    auto* buttons = new FlowLayout(nullptr, kGap);
    for (QPushButton* button : {cmdAdd, cmdEdit, cmdRemove, cmdReset, cmdClose})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstAlerts, 3);
    layout->addWidget(lblMessage);
    layout->addLayout(buttons);
    layout->addWidget(fired);
    layout->addWidget(lstLog, 2);
    ResizeWithinScreen(*this, kWidth, kLines);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

QTreeWidget* frmAlerts::List(const QString& name, const QString& accessibleName,
                             const QStringList& headers) {
    auto* list = new QTreeWidget(this);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    list->setHeaderLabels(headers);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAlternatingRowColors(true);
    list->setAllColumnsShowFocus(true);
    QHeaderView& header = *list->header();
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setStretchLastSection(true);
    return list;
}

bool frmAlerts::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstAlerts && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        Q_EMIT DeleteKey();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tallowmere
