#pragma once

#include "app/forms/ListRoles.h"
#include "core/portfolio/quote_cells.h"
#include "core/portfolio/ticker_order.h"

#include <QAbstractListModel>
#include <QStringList>

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class QMimeData;

namespace tallowmere {

class SettingsStore;
class UndoRecorder;

/// The tickers of the portfolio in view, a row each: what the store holds, and what an entry has
/// added without being written. All that shows the list takes it from here, all that changes it
/// does so here, and every change of the store is a step that can be undone.
class TickerModel : public QAbstractListModel {
    Q_OBJECT
public:
    /// Both are kept by reference. Empty until a portfolio is shown.
    TickerModel(SettingsStore& settings, UndoRecorder& undo, QObject* parent = nullptr);

    /// The number of the portfolio in view, 0 until one was shown.
    int Number() const { return m_number; }
    const QStringList& Items() const { return m_tickers; }
    std::vector<std::string> Tickers() const;

    /// The stored list of a portfolio (1 to 10), each ticker followed by a bar.
    std::string Stored(int number) const;
    void Store(int number, std::string_view tickers);
    /// Leaves the portfolio in view with the tickers `kept` and puts `moved` behind those of
    /// another, in one write: no ticker is lost on its way. The rows stay as they are.
    void StoreMove(int target, const std::string& kept, const std::string& moved);

    /// Writes what is in view, unless it is empty, and shows another portfolio. A list that was
    /// emptied by hand keeps its stored value. Throws RuntimeError when it cannot be written.
    void Show(int number);
    /// Shows what the store holds by now; whether that is something else.
    bool Reload();

    /// Writes what is in view, even when that is nothing.
    void Write();
    /// The same as a step of its own, if it differs from what is stored and is not empty.
    void WriteUnwritten();

    /// Puts tickers at the end and writes the list.
    void Add(const std::vector<std::string>& tickers);
    /// Puts tickers at the end of the rows alone.
    void Append(const std::vector<std::string>& tickers);
    /// Takes a row out of the rows alone.
    void TakeOut(int row);
    /// Takes all rows out of the rows alone.
    void Clear();

    /// Puts the rows into another order and writes the list, as a step of that caption; nothing
    /// where it is the order that they have. The selection goes with its row.
    void Arrange(const TickerOrder& order, const std::string& caption);
    /// Moves one row before another one, in the same way.
    bool moveRows(const QModelIndex& sourceParent, int row, int count,
                  const QModelIndex& targetParent, int before) override;

    /// The row that is dragged, -1 when it is none of this list or gone by now.
    int DraggedRow(const QMimeData& mime) const;

    /// Marks tickers from now on by what the function gives for them.
    using Marker = std::function<ItemMark(const QString& ticker)>;
    void SetMarker(Marker marker);
    /// Tells what the function gives for a ticker as its name from now on.
    using Names = std::function<QString(const QString& ticker)>;
    void SetNames(Names nameOf) { m_nameOf = std::move(nameOf); }
    /// Shows the marks anew for which the function gives other signs; the rest is left alone.
    void RefreshMarks();

    /// Shows what the function gives for the tickers from now on; none without it.
    using QuoteReader = std::function<std::optional<QuoteCells>(const std::string& ticker)>;
    void SetQuotes(QuoteReader reader);
    /// Reads the quotes of these symbols (in the program's form) anew, of all without any. Only
    /// rows whose quote is another one than was shown are told to have changed.
    void RefreshQuotes(const std::set<std::string>& symbols = {});
    /// The quote of a ticker, none when there is none.
    const std::optional<QuoteCells>& QuoteOf(const QString& ticker) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // Rows are dragged; what is dropped between them is moved there.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    Qt::DropActions supportedDragActions() const override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* mime, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* mime, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

private:
    void SetRows(QStringList tickers);
    ItemMark MarkWithQuote(const QString& ticker) const;
    QString SignOf(const QString& ticker) const;
    void TellRows(const std::function<bool(const QString& ticker)>& hasChanged,
                  const QList<int>& roles);

    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    int m_number = 0;
    QStringList m_tickers;
    Marker m_marker;
    Names m_nameOf;
    mutable std::unordered_map<std::string, QString> m_signs; ///< that were looked at
    QuoteReader m_readQuote;
    /// What was read, by the ticker: rows that nobody looked at are in none.
    mutable std::unordered_map<std::string, std::optional<QuoteCells>> m_quotes;
};

} // namespace tallowmere
