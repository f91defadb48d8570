#pragma once

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

/// Pages one below another, each as wide and as high as the column's own view. Only some of them
/// are live at once: those in view, and those near them.
class CellColumn : public QScrollArea {
    Q_OBJECT
public:
    /// `makePane` gives a new pane for a cell.
    CellColumn(const QStringList& addresses, std::function<BrowserPane*(QWidget*)> makePane,
               QWidget* parent);

    static constexpr std::size_t kMostLive = 12;

    const QList<PageCell*>& Cells() const { return m_cells; }

Q_SIGNALS:
    void AloneWanted(const QString& address);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Revive();
    void SetLive(const std::set<std::size_t>& live);

    std::function<BrowserPane*(QWidget*)> m_makePane;
    QList<PageCell*> m_cells;
    std::set<std::size_t> m_live;
    QTimer m_settle;
};

} // namespace tallowmere
