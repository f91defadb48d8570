#pragma once

#include "app/forms/ListRoles.h"

#include <QListView>
#include <QStringListModel>

namespace tallowmere {

/// A list of texts of which one may be selected, as a model has them; made for lists of many
/// thousand items.
class ListBox : public QListView {
    Q_OBJECT
public:
    ListBox(const QString& name, const QString& accessibleName, QWidget* parent);

    /// Shows the items of a model, which is kept by reference.
    void setModel(QAbstractItemModel* model) override;

    int Count() const;
    QStringList Items() const;
    QString Item(int index) const;

    /// The index of the selected item, -1 for none.
    int ListIndex() const;
    /// Selects an item; -1 selects none.
    void SetListIndex(int index);
    /// Selects an item as if the user had done so.
    void Choose(int index);
    /// The text of the selected item, empty when there is none.
    QString SelectedText() const;

    /// What the model tells of an item besides its text.
    ItemMark MarkOf(int index) const;

Q_SIGNALS:
    /// The user clicked the list or moved its selection.
    void Clicked();
    void DoubleClicked();
    void DeletePressed();
    void MenuRequested(const QPoint& globalPosition);
    void PointerMoved();

protected:
    void dataChanged(const QModelIndex& first, const QModelIndex& last,
                     const QList<int>& roles) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void AskForMenu();
    bool m_fromUser = true;
};

/// A list with texts of its own.
class TextListBox : public ListBox {
    Q_OBJECT
public:
    TextListBox(const QString& name, const QString& accessibleName, QWidget* parent);

    void SetItems(const QStringList& items) { m_texts.setStringList(items); }
    void AddItems(const QStringList& items);
    /// Takes an item away; none is selected then.
    void RemoveItem(int index);
    void Clear() { SetItems({}); }

private:
    QStringListModel m_texts;
};

} // namespace tallowmere
