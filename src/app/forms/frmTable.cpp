#include "app/forms/frmTable.h"

#include "app/base/FlowLayout.h"
#include "app/forms/DialogParts.h"
#include "app/forms/PlaceKeys.h"
#include "app/forms/TableCellPainter.h"
#include "app/forms/WindowCommands.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 150; // characters
constexpr int kLines = 34;
constexpr int kFilterWidth = 24; // characters
constexpr int kNarrowest = 24;   // pixels of a column
constexpr int kGap = 6;
constexpr int kPadding = 6; // pixels of a row around its text

QPushButton* MakeMenuButton(const QString& name, const QString& caption, QMenu* menu,
                            QWidget* window) {
    QPushButton* button = MakeButton(name, caption, window);
    button->setMenu(menu);
    return button;
}

} // namespace

frmTable::frmTable(QWidget* parent, CommandKeys& keys)
    : QDialog(parent, Qt::Window),
      commands(new WindowCommands(*this, keys, kTableWindow | kDialogs)) {
    setObjectName(u"frmTable"_s);
    setWindowTitle(u"Portfolio Table"_s);
    txtFilter = new QLineEdit(this);
    txtFilter->setObjectName(u"txtFilter"_s);
    txtFilter->setAccessibleName(u"Filter"_s);
    txtFilter->setPlaceholderText(u"Ticker, name or note"_s);
    txtFilter->setClearButtonEnabled(true);
    txtFilter->setMinimumWidth(kFilterWidth * fontMetrics().averageCharWidth());
    txtFilter->installEventFilter(this);
    cmbScope = new QComboBox(this);
    cmbScope->setObjectName(u"cmbScope"_s);
    cmbScope->setAccessibleName(u"Portfolios"_s);
    cmbScope->addItems({u"This Portfolio"_s, u"All Portfolios"_s});
    mnuColumns = new QMenu(this);
    mnuColumns->setObjectName(u"mnuColumns"_s);
    mnuSort = new QMenu(this);
    mnuSort->setObjectName(u"mnuSort"_s);
    cmdColumns = MakeMenuButton(u"cmdColumns"_s, u"&Columns"_s, mnuColumns, this);
    cmdSort = MakeMenuButton(u"cmdSort"_s, u"&Sort"_s, mnuSort, this);
    cmdCopy = MakeButton(u"cmdCopy"_s, u"Copy CS&V"_s, this);
    cmdPrint = MakeButton(u"cmdPrint"_s, u"&Print..."_s, this);
    lblState = new QLabel(this);
    lblState->setObjectName(u"lblState"_s);
    lblState->setTextFormat(Qt::PlainText);
    lblState->setWordWrap(true);
    MakeTable();
    LayOut();
    AddKeys();
}

void frmTable::MakeTable() {
    tblTickers = new QTableView(this);
    tblTickers->setObjectName(u"tblTickers"_s);
    tblTickers->setAccessibleName(u"Tickers"_s);
    tblTickers->setItemDelegate(new TableCellPainter(tblTickers));
    tblTickers->setSelectionBehavior(QAbstractItemView::SelectRows);
    tblTickers->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tblTickers->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tblTickers->setAlternatingRowColors(true);
    tblTickers->setShowGrid(false);
    tblTickers->setWordWrap(false);
    tblTickers->setTabKeyNavigation(false);
    tblTickers->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    tblTickers->installEventFilter(this);
    tblTickers->verticalHeader()->hide();
    tblTickers->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    SetRowHeight();
    QHeaderView& header = *tblTickers->horizontalHeader();
    header.setSectionsMovable(true);
    header.setHighlightSections(false);
    header.setMinimumSectionSize(kNarrowest);
    header.setSortIndicatorClearable(true);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&header, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        mnuColumns->popup(tblTickers->horizontalHeader()->mapToGlobal(at));
    });
    connect(tblTickers, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        Q_EMIT Opened(index.row(), PlaceOf(QGuiApplication::keyboardModifiers()));
    });
    connect(tblTickers->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &frmTable::SightChanged);
}

void frmTable::LayOut() {
    auto* filter = new QWidget(this);
    auto* caption = new QLabel(u"&Filter:"_s, filter);
    caption->setBuddy(txtFilter);
    auto* line = new QHBoxLayout(filter);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(caption);
    line->addWidget(txtFilter);
    auto* controls = new FlowLayout(nullptr, kGap);
    for (QWidget* control : {filter, static_cast<QWidget*>(cmbScope),
                             static_cast<QWidget*>(cmdColumns), static_cast<QWidget*>(cmdSort),
                             static_cast<QWidget*>(cmdCopy), static_cast<QWidget*>(cmdPrint)})
        controls->addWidget(control);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(tblTickers, 1);
    layout->addWidget(lblState);
    const QList<QWidget*> order{txtFilter, cmbScope, cmdColumns, cmdSort,
                                cmdCopy,   cmdPrint, tblTickers};
    for (qsizetype n = 1; n < order.size(); ++n)
        setTabOrder(order[n - 1], order[n]);
    ResizeWithinScreen(*this, kWidth, kLines);
}

void frmTable::AddKeys() {
    connect(commands->At("filterTable"), &QAction::triggered, this, [this] {
        txtFilter->setFocus(Qt::ShortcutFocusReason);
        txtFilter->selectAll();
    });
    connect(commands->At("copyTable"), &QAction::triggered, cmdCopy, &QPushButton::click);
    connect(commands->At("printTable"), &QAction::triggered, cmdPrint, &QPushButton::click);
    connect(commands->Offer("closeTab"), &QAction::triggered, this, &QDialog::reject);
}

void frmTable::SetModel(QAbstractItemModel* model) {
    tblTickers->setModel(model);
}

std::pair<int, int> frmTable::RowsInView() const {
    const QAbstractItemModel* model = tblTickers->model();
    const int first = tblTickers->rowAt(0);
    if (!model || first < 0)
        return {-1, -1};
    const int last = tblTickers->rowAt(tblTickers->viewport()->height() - 1);
    return {first, last < 0 ? model->rowCount() - 1 : last};
}

void frmTable::SetRowHeight() {
    tblTickers->verticalHeader()->setDefaultSectionSize(tblTickers->fontMetrics().height() +
                                                        kPadding);
}

// In the line, Down and Enter go on to the rows, and Escape takes the text out before it closes the
// window.
bool frmTable::FilterKey(int key) {
    switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        tblTickers->setFocus(Qt::ShortcutFocusReason);
        return true;
    case Qt::Key_Escape:
        if (txtFilter->text().isEmpty())
            return false;
        txtFilter->clear();
        return true;
    default:
        return false;
    }
}

bool frmTable::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& press = static_cast<QKeyEvent&>(*event);
        if (watched == txtFilter)
            return FilterKey(press.key());
        const int row = tblTickers->currentIndex().row();
        if (watched == tblTickers && press.matches(QKeySequence::Copy)) {
            Q_EMIT CopyKey();
            return true;
        }
        if (watched == tblTickers && row >= 0 &&
            (press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter)) {
            Q_EMIT Opened(row, PlaceOf(press.modifiers()));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

bool frmTable::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        Q_EMIT SightChanged();
        break;
    default:
        break;
    }
    return QDialog::event(event);
}

void frmTable::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        SetRowHeight();
}

} // namespace tallowmere
