#pragma once

#include "core/portfolio/table_columns.h"

#include <QObject>
#include <QTimer>

#include <array>

class QAction;
class QHeaderView;

namespace tallowmere {

class SettingsStore;
class frmTable;

/// The headings of the table of tickers: which columns are shown, where, how wide, and by which the
/// rows are sorted. The settings keep all of it.
class TableHeader : public QObject {
    Q_OBJECT
public:
    /// Puts the headings of a window whose table has its model as the settings say, and sorts the
    /// rows. The window owns this.
    TableHeader(frmTable& window, SettingsStore& settings);

    /// The column of the portfolios is of use only where there are several.
    void ShowPortfolios(bool areShown);

    /// The columns that are shown, from the left, and their widths in pixels.
    std::vector<WantedColumn> Shown() const;

Q_SIGNALS:
    /// The user asked for the same sorting again.
    void SortAgain();

private:
    void Apply();
    void MakeMenus();
    void SortBy(TableColumn column);
    void ClickAgain(int section);
    void ShowSort();
    void Switch(TableColumn column, bool isShown);
    void Save();
    std::optional<TableSort> Sorting() const;
    TableLayout Layout() const;

    frmTable& m_window;
    QHeaderView& m_header;
    SettingsStore& m_settings;
    std::array<QAction*, kTableColumnCount> m_shown{};
    std::array<QAction*, kTableColumnCount> m_sorts{};
    QAction* m_unsorted = nullptr;
    std::array<int, kTableColumnCount> m_widths{}; ///< that the user chose, 0 for none
    bool m_showsPortfolios = false;
    QTimer m_soon; ///< a drag of an edge is one change
};

} // namespace tallowmere
