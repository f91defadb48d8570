#include "app/forms/frmSiteData.h"

#include "app/forms/DialogParts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 90; // characters
constexpr int kLines = 28;

} // namespace

frmSiteData::frmSiteData(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmSiteData"_s);
    setWindowTitle(u"Site Data"_s);
    lstData = new QTreeWidget(this);
    lstData->setObjectName(u"lstData"_s);
    lstData->setAccessibleName(u"Sites that keep data"_s);
    lstData->setHeaderLabels({u"Site"_s, u"Cookies"_s, u"Databases"_s, u"Cookies Across Sites"_s});
    lstData->setRootIsDecorated(false);
    lstData->setUniformRowHeights(true);
    lstData->setAlternatingRowColors(true);
    auto* hint = Label(u"lblHint"_s);
    hint->setText(
        u"Cookies, stored texts, databases and caches of a site are cleared at once. What a site "
        "runs in the background cannot be ended while the program runs: that, for all sites, and "
        "all that is left of this one go at the next start. \"Clear All\" is complete then; until "
        "then the cache, the cookies and what the listed sites store are gone.\n\n"
        "A site that is checked under \"Cookies Across Sites\" gets its cookies in frames of other "
        "sites, too, and other sites get theirs in its pages. All others do not."_s);
    lblMessage = Label(u"lblMessage"_s);
    QFont bold = font();
    bold.setBold(true);
    lblMessage->setFont(bold);
    cmdClear = MakeButton(u"cmdClear"_s, u"Clear &Site"_s, this);
    cmdClearAll = MakeButton(u"cmdClearAll"_s, u"Clear &All..."_s, this);
    cmdClose = MakeButton(u"cmdClose"_s, u"&Close"_s, this);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblMessage, 1);
    buttons->addWidget(cmdClear);
    buttons->addWidget(cmdClearAll);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstData, 1);
    layout->addWidget(hint);
    layout->addLayout(buttons);
    QHeaderView& header = *lstData->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(Site, QHeaderView::Stretch);
    ResizeWithinScreen(*this, kWidth, kLines);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

QLabel* frmSiteData::Label(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QTreeWidgetItem* frmSiteData::Row(const QString& site) const {
    for (int n = 0; n < lstData->topLevelItemCount(); ++n)
        if (QTreeWidgetItem* item = lstData->topLevelItem(n); item->text(Site) == site)
            return item;
    return nullptr;
}

} // namespace tallowmere
