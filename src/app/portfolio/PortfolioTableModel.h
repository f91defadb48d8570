#pragma once

#include "core/portfolio/stored_portfolio.h"
#include "core/portfolio/table_rows.h"

#include <QAbstractTableModel>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace tallowmere {

/// The tickers of one or of all portfolios with all that is known about them, a row each, for the
/// table. Its columns are those of kTableColumns. The rows keep their places when prices change:
/// they are sorted when somebody asks for it and when they are filled in anew.
class PortfolioTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// Where the facts about a ticker come from; one that is missing knows nothing.
    struct Readers {
        std::function<std::optional<ListedPrice>(const std::string& ticker)> price;
        std::function<std::string(const std::string& ticker)> name; ///< empty: that of the price
        std::function<std::string(const std::string& ticker)> note; ///< its first line
        std::function<TickerReminders(const std::string& ticker)> reminders;
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows the tickers of these portfolios; all facts are read anew.
    void Fill(const std::vector<StoredPortfolio>& portfolios, Readers readers);

    /// Shows only rows in which all words of the text occur.
    void SetFilter(const QString& typed);

    /// Sorts by a column, and by none, which is the order of the portfolios, for -1.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    /// Sorts by the same column as before, by the prices of now.
    void SortAgain();
    /// Whether prices have changed by which the rows are sorted.
    bool IsOrderOld() const { return m_isOrderOld; }

    /// Reads the prices of these symbols (in the program's form) anew. Only rows that change are
    /// told.
    void RefreshPrices(const std::vector<std::string>& symbols);
    /// Reads the prices of these rows anew: their ages rise.
    void RefreshRows(int first, int last);

    const TableRow& At(int row) const { return m_rows[m_shown.at(static_cast<std::size_t>(row))]; }
    /// The row of a ticker of a portfolio, -1 when it is not shown.
    int RowOf(int portfolio, const std::string& ticker) const;
    /// How many tickers there are, shown or not.
    int TotalCount() const { return static_cast<int>(m_rows.size()); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// A price changed by which the rows are sorted.
    void OrderGrewOld();

private:
    void Read(TableRow& row) const;
    void ReadPrice(TableRow& row) const;
    void SortRows();
    void ShowRows();
    void Refresh(const std::vector<std::size_t>& rows);
    bool RefreshPrice(std::size_t row);
    QString HintOf(const TableRow& row, TableColumn column) const;

    Readers m_readers;
    std::vector<TableRow> m_rows;           ///< in the order of the portfolios
    std::vector<std::string> m_filterTexts; ///< of the rows; empty until they are needed
    std::vector<std::string> m_filterWords;
    TickerOrder m_order;       ///< of all rows
    TickerOrder m_shown;       ///< of those that pass the filter
    std::vector<int> m_places; ///< of the rows among those shown, -1 for none
    std::unordered_map<std::string, std::vector<std::size_t>> m_bySymbol;
    std::optional<TableSort> m_sort;
    bool m_isOrderOld = false;
};

} // namespace tallowmere
