#pragma once

#include "app/forms/FinderRows.h"
#include "core/links/page_place.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>

namespace tallowmere {

/// The box that finds everything: a line and the rows that it finds, over its window. The line has
/// the focus as long as the box is open; it closes when that goes elsewhere in the window.
class frmFinder : public QFrame {
    Q_OBJECT
public:
    explicit frmFinder(QWidget* window);

    /// Opens the box with a line, or gives it another one, which is selected.
    void Open(const QString& line, const QString& placeholder);
    /// Selects what is in the line of the open box.
    void SelectLine();
    /// Closes it; the focus goes back to where it was.
    void Dismiss();

    /// Shows rows, the first of them chosen.
    void ShowRows(QList<FinderRow> rows, FinderRows::Detail detail);
    /// The chosen row, -1 for none.
    int Row() const;
    const FinderRows& Rows() const { return m_rows; }

    QLineEdit* txtFind;
    QListView* lstFound;
    QLabel* lblHint;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void Typed(const QString& line);
    /// Another row is chosen, -1 for none.
    void RowChanged(int row);
    /// A row is to be opened in a place.
    void Chosen(int row, PagePlace place);
    /// Tab was pressed.
    void AddWanted();

private:
    bool TakesKey(int key) const;
    bool PressKey(int key, Qt::KeyboardModifiers modifiers);
    void Move(int by);
    void Tell();
    void Place();
    void LeaveWith(const QWidget* focus);

    FinderRows m_rows;
    QPointer<QWidget> m_before; ///< had the focus
};

} // namespace tallowmere
