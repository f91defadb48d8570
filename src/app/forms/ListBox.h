#pragma once

#include <QListView>
#include <QStringListModel>

namespace tallowmere {

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
    /// The text of the selected item, empty when there is none.
    QString SelectedText() const;

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
    QStringListModel m_model;
    bool m_fromUser = true;
};

} // namespace tallowmere
