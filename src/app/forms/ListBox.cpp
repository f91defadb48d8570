#include "app/forms/ListBox.h"

#include "app/base/QtText.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace tallowmere {

namespace {

class Delegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = LineStart(option->text);
    }
};

} // namespace

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

// The right button leaves the selection alone: its menu is about the selected item.
void ListBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton)
        return;
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
