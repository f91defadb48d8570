#include "app/portfolio/PortfolioTableModel.h"

#include "app/base/QtText.h"
#include "app/forms/TableCellPainter.h"
#include "core/portfolio/ticker_list.h"
#include "core/quotes/symbol_dialect.h"

#include <algorithm>
#include <numeric>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// A text of strangers in one line.
QString OneLine(std::string_view text) {
    return LineStart(ToQt(text)).simplified();
}

TableColumn ColumnAt(int section) {
    return kTableColumns.at(static_cast<std::size_t>(section)).column;
}

} // namespace

void PortfolioTableModel::Fill(const std::vector<StoredPortfolio>& portfolios, Readers readers) {
    beginResetModel();
    m_readers = std::move(readers);
    m_rows.clear();
    m_bySymbol.clear();
    m_filterTexts.clear();
    for (const StoredPortfolio& portfolio : portfolios)
        for (const std::string& ticker : SplitTickerList(portfolio.tickers)) {
            if (ticker.empty())
                continue;
            m_bySymbol[OwnSymbol(ticker)].push_back(m_rows.size());
            TableRow& row = m_rows.emplace_back();
            row.portfolio = portfolio.number;
            row.portfolioName = portfolio.name;
            row.ticker = ticker;
            Read(row);
        }
    m_order.resize(m_rows.size());
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    SortRows();
    ShowRows();
    endResetModel();
}

void PortfolioTableModel::Read(TableRow& row) const {
    ReadPrice(row);
    if (m_readers.note)
        row.note = m_readers.note(row.ticker);
    if (m_readers.reminders)
        row.reminders = m_readers.reminders(row.ticker);
}

void PortfolioTableModel::ReadPrice(TableRow& row) const {
    if (m_readers.price)
        row.price = m_readers.price(row.ticker);
    // No cell shows the prices of the day, and of thousands of rows they would be many.
    if (row.price)
        row.price->day = {};
    row.name = m_readers.name ? m_readers.name(row.ticker) : std::string();
    if (row.name.empty() && row.price)
        row.name = row.price->name;
}

void PortfolioTableModel::SetFilter(const QString& typed) {
    std::vector<std::string> words = FilterWords(FromQt(typed));
    if (words == m_filterWords)
        return;
    beginResetModel();
    m_filterWords = std::move(words);
    ShowRows();
    endResetModel();
}

void PortfolioTableModel::ShowRows() {
    if (!m_filterWords.empty() && m_filterTexts.empty())
        for (const TableRow& row : m_rows)
            m_filterTexts.push_back(FilterText(row));
    m_shown.clear();
    m_places.assign(m_rows.size(), -1);
    for (const std::size_t row : m_order)
        if (m_filterWords.empty() || PassesFilter(m_filterTexts[row], m_filterWords)) {
            m_places[row] = static_cast<int>(m_shown.size());
            m_shown.push_back(row);
        }
}

void PortfolioTableModel::SortRows() {
    m_isOrderOld = false;
    if (!m_sort)
        return;
    std::vector<SortKey> keys;
    keys.reserve(m_rows.size());
    for (const TableRow& row : m_rows)
        keys.push_back(SortKeyOf(row, m_sort->column));
    m_order = SortedOrder(std::move(m_order), keys, m_sort->isDescending);
}

void PortfolioTableModel::sort(int column, Qt::SortOrder order) {
    m_sort.reset();
    if (column >= 0 && column < columnCount())
        m_sort = TableSort{ColumnAt(column), order == Qt::DescendingOrder};
    else
        std::ranges::sort(m_order);
    SortAgain();
}

void PortfolioTableModel::SortAgain() {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const TickerOrder before = m_shown;
    SortRows();
    ShowRows();
    const QModelIndexList kept = persistentIndexList();
    for (const QModelIndex& cell : kept)
        changePersistentIndex(
            cell, index(m_places[before[static_cast<std::size_t>(cell.row())]], cell.column()));
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void PortfolioTableModel::RefreshPrices(const std::vector<std::string>& symbols) {
    std::vector<std::size_t> rows;
    for (const std::string& symbol : symbols)
        if (const auto found = m_bySymbol.find(symbol); found != m_bySymbol.end())
            rows.insert(rows.end(), found->second.begin(), found->second.end());
    Refresh(rows);
}

void PortfolioTableModel::RefreshRows(int first, int last) {
    if (first < 0 || last < first || last >= rowCount())
        return;
    Refresh({m_shown.begin() + first, m_shown.begin() + last + 1});
}

bool PortfolioTableModel::RefreshPrice(std::size_t row) {
    TableRow now = m_rows[row];
    ReadPrice(now);
    if (now.price == m_rows[row].price && now.name == m_rows[row].name)
        return false;
    if (m_sort) {
        const SortKey before = SortKeyOf(m_rows[row], m_sort->column);
        const SortKey after = SortKeyOf(now, m_sort->column);
        m_isOrderOld = m_isOrderOld || before.isMissing != after.isMissing ||
                       before.number != after.number || before.text != after.text;
    }
    m_rows[row] = std::move(now);
    if (!m_filterTexts.empty())
        m_filterTexts[row] = FilterText(m_rows[row]);
    return true;
}

// Rows that follow each other are told at once.
void PortfolioTableModel::Refresh(const std::vector<std::size_t>& rows) {
    const bool wasOrderOld = m_isOrderOld;
    std::set<int> changed;
    for (const std::size_t row : rows)
        if (RefreshPrice(row) && m_places[row] >= 0)
            changed.insert(m_places[row]);
    for (auto first = changed.begin(); first != changed.end();) {
        auto end = std::next(first);
        int last = *first;
        for (; end != changed.end() && *end == last + 1; ++end)
            last = *end;
        Q_EMIT dataChanged(index(*first, 0), index(last, columnCount() - 1));
        first = end;
    }
    if (m_isOrderOld && !wasOrderOld)
        Q_EMIT OrderGrewOld();
}

int PortfolioTableModel::RowOf(int portfolio, const std::string& ticker) const {
    const auto found = m_bySymbol.find(OwnSymbol(ticker));
    if (found == m_bySymbol.end())
        return -1;
    for (const std::size_t row : found->second)
        if (m_rows[row].portfolio == portfolio && m_rows[row].ticker == ticker)
            return m_places[row];
    return -1;
}

int PortfolioTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int PortfolioTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kTableColumnCount);
}

QString PortfolioTableModel::HintOf(const TableRow& row, TableColumn column) const {
    const QString text = OneLine(CellText(row, column));
    if (text.isEmpty() || column == TableColumn::Portfolio || column == TableColumn::Note ||
        column == TableColumn::Reminders || !row.price)
        return text;
    QString hint = text + u"\n"_s + OneLine(row.price->origin);
    if (row.price->doubtful)
        hint += u"\ndoubtful: moved by half or more"_s;
    return hint;
}

QVariant PortfolioTableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const TableRow& row = At(index.row());
    const TableColumn column = ColumnAt(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return OneLine(CellText(row, column));
    case Qt::ToolTipRole:
        return HintOf(row, column);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue<int>(
            (ColumnRow(column).isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case TableCellPainter::MoveRole:
        return static_cast<int>(CellMove(row, column));
    case TableCellPainter::StaleRole:
        return row.price && !row.price->age.empty() && ColumnRow(column).isNumber;
    case TableCellPainter::RangeRole: {
        const auto range = CellRange(row, column);
        return range ? QVariant(range->position) : QVariant();
    }
    default:
        return {};
    }
}

QVariant PortfolioTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const TableColumnRow& column = ColumnRow(ColumnAt(section));
    if (role == Qt::DisplayRole)
        return ToQt(column.caption);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue<int>((column.isNumber ? Qt::AlignRight : Qt::AlignLeft) |
                                        Qt::AlignVCenter);
    return {};
}

} // namespace tallowmere
