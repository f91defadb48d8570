#include "app/forms/frmDownloads.h"

#include "app/base/FlowLayout.h"
#include "app/forms/DialogParts.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 110; // characters
constexpr int kLines = 20;
constexpr int kProgressWidth = 16; // characters
constexpr int kGap = 6;
constexpr int kPercentRole = Qt::UserRole;

/// Draws how far a file is as a bar.
class ProgressDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QVariant percent = index.data(kPercentRole);
        QStyledItemDelegate::paint(painter, option, index);
        if (!percent.isValid())
            return;
        QStyleOptionProgressBar bar;
        bar.rect = option.rect.adjusted(2, 2, -2, -2);
        bar.palette = option.palette;
        bar.state = QStyle::State_Enabled | QStyle::State_Horizontal;
        bar.minimum = 0;
        bar.maximum = 100;
        bar.progress = percent.toInt();
        bar.text = QString::number(bar.progress) + u" %"_s;
        bar.textVisible = true;
        bar.textAlignment = Qt::AlignCenter;
        QApplication::style()->drawControl(QStyle::CE_ProgressBar, &bar, painter, option.widget);
    }
};

} // namespace

frmDownloads::frmDownloads(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmDownloads"_s);
    setWindowTitle(u"Downloads"_s);
    lstFiles = new QTreeWidget(this);
    lstFiles->setObjectName(u"lstFiles"_s);
    lstFiles->setAccessibleName(u"Downloaded files"_s);
    lstFiles->setHeaderLabels({u"File"_s, u"Progress"_s, u"What became of it"_s});
    lstFiles->setRootIsDecorated(false);
    lstFiles->setUniformRowHeights(true);
    lstFiles->setAlternatingRowColors(true);
    lstFiles->setAllColumnsShowFocus(true);
    lstFiles->setTextElideMode(Qt::ElideMiddle);
    lstFiles->setItemDelegateForColumn(Progress, new ProgressDelegate(lstFiles));
    lstFiles->installEventFilter(this);
    lblMessage = new QLabel(this);
    lblMessage->setObjectName(u"lblMessage"_s);
    lblMessage->setTextFormat(Qt::PlainText);
    lblMessage->setWordWrap(true);
    cmdOpen = MakeButton(u"cmdOpen"_s, u"&Open"_s, this);
    cmdFolder = MakeButton(u"cmdFolder"_s, u"Show in &Folder"_s, this);
    cmdCancel = MakeButton(u"cmdCancel"_s, u"&Cancel Download"_s, this);
    cmdAgain = MakeButton(u"cmdAgain"_s, u"&Try Again"_s, this);
    cmdRemove = MakeButton(u"cmdRemove"_s, u"&Remove from List"_s, this);
    cmdClose = MakeButton(u"cmdClose"_s, u"C&lose"_s, this);

    auto* buttons = new FlowLayout(nullptr, kGap);
    for (QPushButton* button : {cmdOpen, cmdFolder, cmdCancel, cmdAgain, cmdRemove, cmdClose})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstFiles, 1);
    layout->addWidget(lblMessage);
    layout->addLayout(buttons);
    QHeaderView& header = *lstFiles->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(File, QHeaderView::Stretch);
    header.setSectionResizeMode(Progress, QHeaderView::Fixed);
    header.setSectionResizeMode(Text, QHeaderView::Stretch);
    header.resizeSection(Progress, kProgressWidth * fontMetrics().averageCharWidth());
    ResizeWithinScreen(*this, kWidth, kLines);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDownloads::SetPercent(QTreeWidgetItem& row, std::optional<int> percent) {
    row.setData(Progress, kPercentRole, percent ? QVariant(*percent) : QVariant());
    row.setData(Progress, Qt::AccessibleTextRole,
                percent ? QString::number(*percent) + u" %"_s : u"not known"_s);
}

bool frmDownloads::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstFiles && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        Q_EMIT DeleteKey();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tallowmere
