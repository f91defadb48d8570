#include "app/forms/ListBox.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "core/tools/color_values.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace tallowmere {

namespace {

constexpr int kSignMargin = 4;

// Not every style takes care that the text of a selected row can be read.
void MakeSelectedLegible(QPalette& palette) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const std::uint32_t text = StoredColor(palette.color(group, QPalette::HighlightedText));
        const std::uint32_t row = StoredColor(palette.color(group, QPalette::Highlight));
        palette.setColor(group, QPalette::HighlightedText,
                         ScreenColor(LegibleText(text, row), palette));
    }
}

class Delegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const auto* items = qobject_cast<const MarkedItems*>(index.model());
        const QString sign = items ? items->MarkOf(index).sign : QString();
        if (sign.isEmpty())
            return;
        QStyleOptionViewItem shown = option;
        initStyleOption(&shown, index);
        const bool isSelected = option.state & QStyle::State_Selected;
        painter->save();
        painter->setPen(
            shown.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(option.rect.adjusted(0, 0, -kSignMargin, 0),
                          Qt::AlignRight | Qt::AlignVCenter, sign);
        painter->restore();
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = LineStart(option->text);
        MakeSelectedLegible(option->palette);
    }
};

} // namespace

ItemMark MarkedItems::MarkOf(const QModelIndex& index) const {
    return m_marker ? m_marker(QStringListModel::data(index, Qt::DisplayRole).toString())
                    : ItemMark{};
}

QVariant MarkedItems::data(const QModelIndex& index, int role) const {
    if (role == Qt::ToolTipRole)
        return MarkOf(index).hint;
    if (role == Qt::AccessibleDescriptionRole)
        return MarkOf(index).meaning;
    return QStringListModel::data(index, role);
}

void ListBox::SetMarker(MarkedItems::Marker marker) {
    m_model.SetMarker(std::move(marker));
    RefreshMarks();
}

void ListBox::RefreshMarks() {
    viewport()->update();
}

ListBox::ListBox(const QString& name, const QString& accessibleName, QWidget* parent)
    : QListView(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setModel(&m_model);
    setItemDelegate(new Delegate(this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setMouseTracking(true);
    connect(this, &QListView::doubleClicked, this, &ListBox::DoubleClicked);
}

void ListBox::SetItems(const QStringList& items) {
    const QScopedValueRollback quiet(m_fromUser, false);
    m_model.setStringList(items);
}

void ListBox::AddItems(const QStringList& items) {
    if (items.isEmpty())
        return;
    const int selected = ListIndex();
    SetItems(Items() + items);
    SetListIndex(selected);
}

void ListBox::RemoveItem(int index) {
    const QScopedValueRollback quiet(m_fromUser, false);
    m_model.removeRow(index);
    SetListIndex(-1);
}

int ListBox::ListIndex() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void ListBox::SetListIndex(int index) {
    const QScopedValueRollback quiet(m_fromUser, false);
    const QModelIndex item = m_model.index(index);
    selectionModel()->setCurrentIndex(item, QItemSelectionModel::ClearAndSelect);
    if (item.isValid())
        scrollTo(item);
}

void ListBox::Choose(int index) {
    const QModelIndex item = m_model.index(index);
    selectionModel()->setCurrentIndex(item, QItemSelectionModel::ClearAndSelect);
    scrollTo(item);
}

QString ListBox::SelectedText() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : selected.first().data().toString();
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT DoubleClicked();
        return;
    case Qt::Key_Delete:
        Q_EMIT DeletePressed();
        return;
    case Qt::Key_F10:
        // As on a link: not every window system makes a request for the menu of it.
        if (event->modifiers() == Qt::ShiftModifier)
            AskForMenu();
        else
            QListView::keyPressEvent(event);
        return;
    default:
        QListView::keyPressEvent(event);
    }
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT PointerMoved();
    QListView::mouseMoveEvent(event);
}

// The menu of the right button is about the item under the pointer, which it selects; over no item
// it is about the one that is selected.
void ListBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        const QModelIndex item = indexAt(event->position().toPoint());
        if (item.isValid())
            selectionModel()->setCurrentIndex(item, QItemSelectionModel::ClearAndSelect);
        return;
    }
    QListView::mousePressEvent(event);
    Q_EMIT Clicked();
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        Q_EMIT MenuRequested(event->globalPosition().toPoint());
    else
        QListView::mouseReleaseEvent(event);
}

void ListBox::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        AskForMenu();
}

void ListBox::AskForMenu() {
    Q_EMIT MenuRequested(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
}

void ListBox::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (m_fromUser)
        Q_EMIT Clicked();
}

} // namespace tallowmere
