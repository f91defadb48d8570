#include "app/forms/frmFinder.h"

#include "app/base/QtText.h"
#include "app/forms/FinderRowPainter.h"
#include "app/forms/PlaceKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 110;    // characters
constexpr int kMostLines = 14; // rows at once
constexpr int kMargin = 12;
constexpr int kPadding = 6;

} // namespace

frmFinder::frmFinder(QWidget* window) : QFrame(window) {
    setObjectName(u"frmFinder"_s);
    setAccessibleName(u"Find Anything"_s);
    // A line around it: it lies over pages and links of any colour.
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    hide();
    txtFind = new QLineEdit(this);
    txtFind->setObjectName(u"txtFind"_s);
    txtFind->setAccessibleName(u"Find anything"_s);
    txtFind->installEventFilter(this);
    lstFound = new QListView(this);
    lstFound->setObjectName(u"lstFound"_s);
    lstFound->setAccessibleName(u"Found"_s);
    lstFound->setModel(&m_rows);
    lstFound->setItemDelegate(new FinderRowPainter(lstFound));
    lstFound->setUniformItemSizes(true);
    lstFound->setEditTriggers(QListView::NoEditTriggers);
    lstFound->setFocusPolicy(Qt::NoFocus);
    lstFound->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lblHint = new QLabel(this);
    lblHint->setObjectName(u"lblHint"_s);
    lblHint->setTextFormat(Qt::PlainText);
    lblHint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    layout->setSpacing(kPadding);
    layout->addWidget(txtFind);
    layout->addWidget(lstFound, 1);
    layout->addWidget(lblHint);
    window->installEventFilter(this);
    connect(txtFind, &QLineEdit::textChanged, this, &frmFinder::Typed);
    connect(lstFound, &QListView::clicked, this, [this](const QModelIndex& index) {
        Q_EMIT Chosen(index.row(), PlaceOf(QGuiApplication::keyboardModifiers()));
    });
    connect(lstFound->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmFinder::Tell);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, const QWidget* now) { LeaveWith(now); });
}

void frmFinder::Open(const QString& line, const QString& placeholder) {
    if (!isVisible())
        m_before = QApplication::focusWidget();
    txtFind->setPlaceholderText(placeholder);
    txtFind->setText(line);
    show();
    raise();
    Place();
    SelectLine();
}

void frmFinder::SelectLine() {
    txtFind->setFocus(Qt::ShortcutFocusReason);
    txtFind->selectAll();
}

void frmFinder::Dismiss() {
    if (!isVisible())
        return;
    const QPointer<QWidget> before = m_before;
    m_before = nullptr;
    hide();
    if (before && before->isVisible())
        before->setFocus(Qt::PopupFocusReason);
}

// A dialog or another program may come in front and go again.
void frmFinder::LeaveWith(const QWidget* focus) {
    if (!isVisible() || !focus || focus->window() != window() || isAncestorOf(focus))
        return;
    m_before = nullptr;
    hide();
}

void frmFinder::ShowRows(QList<FinderRow> rows, FinderRows::Detail detail) {
    m_rows.Show(std::move(rows), std::move(detail));
    if (m_rows.rowCount() > 0)
        lstFound->setCurrentIndex(m_rows.index(0));
    else
        Tell();
    Place();
}

int frmFinder::Row() const {
    return lstFound->currentIndex().isValid() ? lstFound->currentIndex().row() : -1;
}

// The focus stays in the line: that is where a screen reader hears of the chosen row.
void frmFinder::Tell() {
    const int row = Row();
    QString words = row < 0 ? u"Nothing found"_s
                            : m_rows.data(m_rows.index(row), Qt::AccessibleTextRole).toString();
    if (row >= 0 && !m_rows.DetailOf(row).isEmpty())
        words += u", "_s + m_rows.DetailOf(row);
    txtFind->setAccessibleDescription(LineStart(words));
    Q_EMIT RowChanged(row);
}

void frmFinder::Move(int by) {
    if (m_rows.rowCount() == 0)
        return;
    const int row = std::clamp(Row() + by, 0, m_rows.rowCount() - 1);
    lstFound->setCurrentIndex(m_rows.index(row));
}

bool frmFinder::TakesKey(int key) const {
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

bool frmFinder::PressKey(int key, Qt::KeyboardModifiers modifiers) {
    const int page =
        std::max(1, lstFound->viewport()->height() / std::max(1, lstFound->sizeHintForRow(0)) - 1);
    switch (key) {
    case Qt::Key_Up:
        Move(-1);
        return true;
    case Qt::Key_Down:
        Move(1);
        return true;
    case Qt::Key_PageUp:
        Move(-page);
        return true;
    case Qt::Key_PageDown:
        Move(page);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (Row() >= 0)
            Q_EMIT Chosen(Row(), PlaceOf(modifiers));
        return true;
    case Qt::Key_Tab:
        Q_EMIT AddWanted();
        return true;
    case Qt::Key_Escape:
        Dismiss();
        return true;
    default:
        return TakesKey(key);
    }
}

bool frmFinder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtFind && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        return PressKey(key->key(), key->modifiers());
    }
    // No command of the window has these keys while the box is open.
    if (watched == txtFind && event->type() == QEvent::ShortcutOverride &&
        TakesKey(static_cast<QKeyEvent*>(event)->key())) {
        event->accept();
        return true;
    }
    if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible())
        Place();
    return QFrame::eventFilter(watched, event);
}

// As high as its rows need, in the upper part of the window.
void frmFinder::Place() {
    const QRect area = parentWidget()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const QFontMetrics metrics(font());
    const int top = std::min(metrics.height() * 3, area.height() / 6);
    const int rowHeight = lstFound->itemDelegate()->sizeHint({}, {}).height();
    const int lines = std::clamp(m_rows.rowCount(), 1, kMostLines);
    const int width = std::min(area.width(), metrics.averageCharWidth() * kWidth);
    const int height = txtFind->sizeHint().height() + lblHint->sizeHint().height() +
                       lines * std::max(rowHeight, lstFound->sizeHintForRow(0)) +
                       2 * lstFound->frameWidth() + 4 * kPadding + 2 * frameWidth();
    setGeometry(area.left() + (area.width() - width) / 2, area.top() + top, width,
                std::min(height, area.height() - top));
}

} // namespace tallowmere
