#include "app/forms/frmDownloads.h"

#include "app/base/FlowLayout.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 110; // characters
constexpr int kLines = 20;
constexpr int kProgressWidth = 16; // characters
constexpr int kGap = 6;
constexpr double kMostOfScreen = 0.9;
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
    cmdOpen = Button(u"cmdOpen"_s, u"&Open"_s);
    cmdFolder = Button(u"cmdFolder"_s, u"Show in &Folder"_s);
    cmdCancel = Button(u"cmdCancel"_s, u"&Cancel Download"_s);
    cmdAgain = Button(u"cmdAgain"_s, u"&Try Again"_s);
    cmdRemove = Button(u"cmdRemove"_s, u"&Remove from List"_s);
    cmdClose = Button(u"cmdClose"_s, u"C&lose"_s);

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
    const QSize wanted(kWidth * fontMetrics().averageCharWidth(), kLines * fontMetrics().height());
    resize(wanted.boundedTo(screen()->availableSize() * kMostOfScreen));
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

QPushButton* frmDownloads::Button(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAccessibleName(QString(caption).remove(u'&'));
    button->setAutoDefault(false);
    return button;
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
