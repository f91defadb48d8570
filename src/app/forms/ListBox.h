#pragma once

#include <QListView>
#include <QStringListModel>

#include <functional>

namespace tallowmere {

/// What stands beside an item of a list.
struct ItemMark {
    QString sign;    ///< a character at the end of its row, empty for none
    QString hint;    ///< what is shown while the pointer rests on the item
    QString meaning; ///< what a screen reader says after the item
};

/// The texts of a list, with the marks that a function gives for them.
class MarkedItems : public QStringListModel {
    Q_OBJECT
public:
    using Marker = std::function<ItemMark(const QString& item)>;
    void SetMarker(Marker marker) { m_marker = std::move(marker); }
    ItemMark MarkOf(const QModelIndex& index) const;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    Marker m_marker;
};

/// A list of texts of which one may be selected; made for lists of many thousand items.
class ListBox : public QListView {
    Q_OBJECT
public:
    ListBox(const QString& name, const QString& accessibleName, QWidget* parent);

    int Count() const { return m_model.rowCount(); }
    QStringList Items() const { return m_model.stringList(); }
    QString Item(int index) const { return m_model.stringList().value(index); }
    void SetItems(const QStringList& items);
    void AddItems(const QStringList& items);
    void RemoveItem(int index);
    void Clear() { SetItems({}); }

    /// The index of the selected item, -1 for none.
    int ListIndex() const;
    /// Selects an item; -1 selects none.
    void SetListIndex(int index);
    /// Selects an item as if the user had done so.
    void Choose(int index);
    /// The text of the selected item, empty when there is none.
    QString SelectedText() const;

    /// Marks items from now on by what the function gives for their texts.
    void SetMarker(MarkedItems::Marker marker);
    /// Shows the marks anew when the function gives others.
    void RefreshMarks();
    ItemMark MarkOf(int index) const { return m_model.MarkOf(m_model.index(index)); }

Q_SIGNALS:
    /// The user clicked the list or moved its selection.
    void Clicked();
    void DoubleClicked();
    void DeletePressed();
    void MenuRequested(const QPoint& globalPosition);
    void PointerMoved();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void AskForMenu();
    MarkedItems m_model;
    bool m_fromUser = true;
};

} // namespace tallowmere
