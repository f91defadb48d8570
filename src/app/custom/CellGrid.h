#pragma once

#include "core/custom/page_tiles.h"

#include <QScrollArea>
#include <QTimer>

#include <functional>
#include <set>

namespace tallowmere {

class BrowserPane;

/// One page of a multi-link: a line with its address, and the page below it while it is live.
class PageCell : public QWidget {
    Q_OBJECT
public:
    PageCell(int number, const QString& address, QWidget* parent);

    const QString& Address() const { return m_address; }
    BrowserPane* Pane() const { return m_pane; }

    /// Shows the page in `pane`, or, without one, only where it will be.
    void SetPane(BrowserPane* pane);

Q_SIGNALS:
    void AloneWanted(const QString& address);

private:
    QString m_address;
    QWidget* m_waiting;
    BrowserPane* m_pane = nullptr;
};

/// Pages in one to four columns, all of one size. Only some of them are live at once: those in
/// view, and those near them.
class CellGrid : public QScrollArea {
    Q_OBJECT
public:
    /// `makePane` gives a new pane for a cell.
    CellGrid(const QStringList& addresses, int columns,
             std::function<BrowserPane*(QWidget*)> makePane, QWidget* parent);

    static constexpr std::size_t kMostLive = 12;

    const QList<PageCell*>& Cells() const { return m_cells; }

    /// Lays the pages out anew; the first one in view stays in view.
    void SetColumns(int columns);
    /// Scrolls to the row of a page, and gives the page the keyboard.
    void ShowCell(int index);
    /// The first page of the first row in view.
    int FirstInView() const;

Q_SIGNALS:
    void AloneWanted(const QString& address);
    /// Another row is the first in view.
    void Scrolled(int firstInView);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void PlaceCells();
    void Revive();
    void SetLive(const std::set<std::size_t>& live);
    int FirstOfRow(int y) const;

    std::function<BrowserPane*(QWidget*)> m_makePane;
    QList<PageCell*> m_cells;
    int m_columns; ///< that are wanted
    TileGrid m_grid;
    std::set<std::size_t> m_live;
    QTimer m_settle;
};

} // namespace tallowmere
