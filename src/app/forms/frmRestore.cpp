#include "app/forms/frmRestore.h"

#include "app/forms/DialogParts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 80; // characters
constexpr int kLines = 26;
/// Of thousands nobody reads all names.
constexpr int kMostNames = 500;

QString Count(const QStringList& names) {
    return names.isEmpty() ? QString() : QString::number(names.size());
}

void AddNames(QTreeWidgetItem& row, const QStringList& names, int column) {
    for (const QString& name : names.mid(0, kMostNames)) {
        auto* item = new QTreeWidgetItem(&row);
        item->setText(frmRestore::Part, name);
        item->setToolTip(frmRestore::Part, name);
        item->setText(column, u"\u2022"_s);
        item->setTextAlignment(column, Qt::AlignRight);
    }
    if (names.size() > kMostNames)
        (new QTreeWidgetItem(&row))
            ->setText(frmRestore::Part, u"and %1 more"_s.arg(names.size() - kMostNames));
}

} // namespace

frmRestore::frmRestore(QWidget* parent, const QString& source) : QDialog(parent) {
    setObjectName(u"frmRestore"_s);
    setWindowTitle(u"Restore"_s);
    lblSource = new QLabel(u"From "_s + source, this);
    lblSource->setObjectName(u"lblSource"_s);
    lblSource->setTextFormat(Qt::PlainText);
    lblSource->setWordWrap(true);
    // A long path without a blank must not widen the window.
    lblSource->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lstChanges = new QTreeWidget(this);
    lstChanges->setObjectName(u"lstChanges"_s);
    lstChanges->setAccessibleName(u"What would change"_s);
    lstChanges->setHeaderLabels({u"Part"_s, u"New"_s, u"Changed"_s, u"Gone"_s});
    lstChanges->setUniformRowHeights(true);
    auto* hint = new QLabel(
        u"Checked parts become what the backup holds; all others stay as they are. Undo takes it "
        "back, but for the tables of sites and quote sources. All of what you have now is kept in "
        "\"before-restore.zip\" beside the dated copies."_s,
        this);
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    cmdRestore = MakeButton(u"cmdRestore"_s, u"&Restore"_s, this);
    cmdCancel = MakeButton(u"cmdCancel"_s, u"&Cancel"_s, this);
    cmdCancel->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdRestore);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblSource);
    layout->addWidget(lstChanges, 1);
    layout->addWidget(hint);
    layout->addLayout(buttons);
    QHeaderView& header = *lstChanges->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(Part, QHeaderView::Stretch);
    ResizeWithinScreen(*this, kWidth, kLines);
    connect(cmdRestore, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(lstChanges, &QTreeWidget::itemChanged, this, &frmRestore::ShowButton);
    ShowButton();
}

void frmRestore::AddRow(const Row& row) {
    auto* item = new QTreeWidgetItem;
    const bool isAny = !row.fresh.isEmpty() || !row.changed.isEmpty() || !row.gone.isEmpty();
    item->setText(Part, isAny ? row.part : row.part + u" (no change)"_s);
    item->setText(New, Count(row.fresh));
    item->setText(Changed, Count(row.changed));
    item->setText(Gone, Count(row.gone));
    for (const int column : {New, Changed, Gone})
        item->setTextAlignment(column, Qt::AlignRight);
    if (!row.warning.isEmpty()) {
        auto* warning = new QTreeWidgetItem(item);
        warning->setText(Part, row.warning);
        warning->setToolTip(Part, row.warning);
    }
    AddNames(*item, row.fresh, New);
    AddNames(*item, row.changed, Changed);
    AddNames(*item, row.gone, Gone);
    item->setCheckState(Part, isAny && row.isChosen ? Qt::Checked : Qt::Unchecked);
    if (!isAny)
        item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
    lstChanges->addTopLevelItem(item);
    if (!row.warning.isEmpty())
        item->setExpanded(true);
    if (!lstChanges->currentItem())
        lstChanges->setCurrentItem(item);
    ShowButton();
}

bool frmRestore::IsChosen(int row) const {
    const QTreeWidgetItem* item = lstChanges->topLevelItem(row);
    return item && item->checkState(Part) == Qt::Checked;
}

void frmRestore::ShowButton() {
    bool isAny = false;
    for (int row = 0; row < lstChanges->topLevelItemCount(); ++row)
        isAny = isAny || IsChosen(row);
    cmdRestore->setEnabled(isAny);
}

} // namespace tallowmere
