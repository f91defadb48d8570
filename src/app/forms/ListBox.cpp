#include "app/forms/ListBox.h"

#include "app/forms/RowPainter.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace tallowmere {

ListBox::ListBox(const QString& name, const QString& accessibleName, QWidget* parent)
    : QListView(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setItemDelegate(new RowPainter(this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setMouseTracking(true);
    connect(this, &QListView::doubleClicked, this, &ListBox::DoubleClicked);
}

// What the model takes away was not chosen otherwise by the user. To be told before the selection
// is.
void ListBox::setModel(QAbstractItemModel* model) {
    const auto begin = [this] { m_fromUser = false; };
    const auto end = [this] { m_fromUser = true; };
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, begin);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, begin);
    connect(model, &QAbstractItemModel::modelReset, this, end);
    connect(model, &QAbstractItemModel::rowsRemoved, this, end);
    QListView::setModel(model);
}

int ListBox::Count() const {
    return model() ? model()->rowCount() : 0;
}

QStringList ListBox::Items() const {
    QStringList items;
    const int count = Count();
    items.reserve(count);
    for (int index = 0; index < count; ++index)
        items << Item(index);
    return items;
}

QString ListBox::Item(int index) const {
    return model() ? model()->index(index, 0).data().toString() : QString();
}

ItemMark ListBox::MarkOf(int index) const {
    const QModelIndex item = model()->index(index, 0);
    return {item.data(SignRole).toString(), item.data(Qt::ToolTipRole).toString(),
            item.data(Qt::AccessibleDescriptionRole).toString()};
}

int ListBox::ListIndex() const {
    if (!model())
        return -1;
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void ListBox::SetListIndex(int index) {
    const QScopedValueRollback quiet(m_fromUser, false);
    const QModelIndex item = model()->index(index, 0);
    selectionModel()->setCurrentIndex(item, QItemSelectionModel::ClearAndSelect);
    if (item.isValid())
        scrollTo(item);
}

void ListBox::Choose(int index) {
    const QModelIndex item = model()->index(index, 0);
    selectionModel()->setCurrentIndex(item, QItemSelectionModel::ClearAndSelect);
    scrollTo(item);
}

QString ListBox::SelectedText() const {
    return Item(ListIndex());
}

// A row whose text stays keeps its size: only what changed is painted anew, and nothing is laid
// out.
void ListBox::dataChanged(const QModelIndex& first, const QModelIndex& last,
                          const QList<int>& roles) {
    if (roles.isEmpty() || roles.contains(Qt::DisplayRole)) {
        QListView::dataChanged(first, last, roles);
        return;
    }
    const QRect changed = visualRect(first) | visualRect(last);
    viewport()->update(changed & viewport()->rect());
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

TextListBox::TextListBox(const QString& name, const QString& accessibleName, QWidget* parent)
    : ListBox(name, accessibleName, parent) {
    setModel(&m_texts);
}

void TextListBox::AddItems(const QStringList& items) {
    if (items.isEmpty())
        return;
    const int selected = ListIndex();
    SetItems(Items() + items);
    SetListIndex(selected);
}

void TextListBox::RemoveItem(int index) {
    m_texts.removeRow(index);
    SetListIndex(-1);
}

} // namespace tallowmere
