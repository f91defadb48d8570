#include "app/portfolio/TickerModel.h"

#include "app/base/QtText.h"
#include "core/portfolio/ticker_list.h"
#include "core/portfolio/undo_words.h"
#include "core/quotes/symbol_dialect.h"
#include "core/shell/settings_store.h"
#include "core/shell/undo_recorder.h"

#include <QMimeData>

#include <algorithm>
#include <utility>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

QString DragType() {
    return u"application/x-tallowmere-ticker"_s;
}

std::string KeyOf(int number) {
    return "Stocks" + std::to_string(number);
}

QStringList ToQtList(const std::vector<std::string>& tickers) {
    QStringList list;
    list.reserve(static_cast<qsizetype>(tickers.size()));
    for (const std::string& ticker : tickers)
        list << ToQt(ticker);
    return list;
}

} // namespace

TickerModel::TickerModel(SettingsStore& settings, UndoRecorder& undo, QObject* parent)
    : QAbstractListModel(parent), m_settings(settings), m_undo(undo) {}

std::vector<std::string> TickerModel::Tickers() const {
    std::vector<std::string> tickers;
    tickers.reserve(static_cast<std::size_t>(m_tickers.size()));
    for (const QString& ticker : m_tickers)
        tickers.push_back(FromQt(ticker));
    return tickers;
}

std::string TickerModel::Stored(int number) const {
    return m_settings.GetSetting("Settings", KeyOf(number), "");
}

void TickerModel::Store(int number, std::string_view tickers) {
    m_settings.SaveSetting("Settings", KeyOf(number), tickers);
}

void TickerModel::StoreMove(int target, const std::string& kept, const std::string& moved) {
    if (target == m_number)
        return Store(target, kept + moved);
    m_settings.SaveSettings(
        "Settings", {{KeyOf(m_number), kept}, {KeyOf(target), Stored(target).append(moved)}});
}

void TickerModel::Show(int number) {
    if (!m_tickers.isEmpty()) {
        WriteUnwritten();
        Write();
    }
    m_number = number;
    SetRows(ToQtList(SplitTickerList(Stored(number))));
}

bool TickerModel::Reload() {
    QStringList tickers = ToQtList(SplitTickerList(Stored(m_number)));
    if (tickers == m_tickers)
        return false;
    SetRows(std::move(tickers));
    return true;
}

void TickerModel::SetRows(QStringList tickers) {
    beginResetModel();
    m_tickers = std::move(tickers);
    endResetModel();
}

void TickerModel::Write() {
    Store(m_number, JoinTickerList(Tickers()));
}

void TickerModel::WriteUnwritten() {
    const std::vector<std::string> listed = Tickers();
    const std::vector<std::string> stored = SplitTickerList(Stored(m_number));
    if (listed.empty() || JoinTickerList(listed) == JoinTickerList(stored))
        return;
    m_undo.Run(ListChangeCaption(stored, listed), [this] { Write(); });
}

void TickerModel::Add(const std::vector<std::string>& tickers) {
    WriteUnwritten();
    Append(tickers);
    m_undo.Run(AddCaption(tickers), [this] { Write(); });
}

void TickerModel::Append(const std::vector<std::string>& tickers) {
    if (tickers.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(tickers.size()) - 1);
    m_tickers << ToQtList(tickers);
    endInsertRows();
}

void TickerModel::TakeOut(int row) {
    beginRemoveRows({}, row, row);
    m_tickers.removeAt(row);
    endRemoveRows();
}

void TickerModel::Clear() {
    SetRows({});
}

void TickerModel::SetMarker(Marker marker) {
    m_marker = std::move(marker);
    RefreshMarks();
}

void TickerModel::RefreshMarks() {
    TellRows(
        [this](const QString& ticker) {
            const auto shown = m_signs.find(FromQt(ticker));
            return shown != m_signs.end() && shown->second != SignOf(ticker);
        },
        {SignRole, Qt::ToolTipRole, Qt::AccessibleDescriptionRole});
}

QString TickerModel::SignOf(const QString& ticker) const {
    return m_marker ? m_marker(ticker).sign : QString();
}

void TickerModel::SetQuotes(QuoteReader reader) {
    m_readQuote = std::move(reader);
    m_quotes.clear();
    if (!m_tickers.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1),
                           {QuoteRole, Qt::ToolTipRole, Qt::AccessibleDescriptionRole});
}

void TickerModel::RefreshQuotes(const std::set<std::string>& symbols) {
    std::set<std::string> changed;
    for (auto& [ticker, cells] : m_quotes) {
        if (!symbols.empty() && !symbols.contains(OwnSymbol(ticker)))
            continue;
        auto now = m_readQuote(ticker);
        if (now == cells)
            continue;
        cells = std::move(now);
        changed.insert(ticker);
    }
    if (!changed.empty())
        TellRows([&](const QString& ticker) { return changed.contains(FromQt(ticker)); },
                 {QuoteRole, Qt::ToolTipRole, Qt::AccessibleDescriptionRole});
}

// Rows that follow each other are told at once.
void TickerModel::TellRows(const std::function<bool(const QString& ticker)>& hasChanged,
                           const QList<int>& roles) {
    int first = -1;
    for (int row = 0; row <= rowCount(); ++row) {
        const bool isChanged = row < rowCount() && hasChanged(m_tickers.at(row));
        if (isChanged && first < 0)
            first = row;
        if (!isChanged && first >= 0)
            Q_EMIT dataChanged(index(std::exchange(first, -1)), index(row - 1), roles);
    }
}

const std::optional<QuoteCells>& TickerModel::QuoteOf(const QString& ticker) const {
    static const std::optional<QuoteCells> none;
    if (!m_readQuote)
        return none;
    const auto [entry, isNew] = m_quotes.try_emplace(FromQt(ticker));
    if (isNew)
        entry->second = m_readQuote(entry->first);
    return entry->second;
}

int TickerModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_tickers.size());
}

// Who listens hears the numbers before the marks.
ItemMark TickerModel::MarkWithQuote(const QString& ticker) const {
    ItemMark mark = m_marker ? m_marker(ticker) : ItemMark();
    if (const auto& quote = QuoteOf(ticker))
        mark.meaning =
            ToQt(quote->words) + (mark.meaning.isEmpty() ? u""_s : u", "_s) + mark.meaning;
    return mark;
}

QVariant TickerModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const QString& ticker = m_tickers.at(index.row());
    if (role == Qt::DisplayRole)
        return ticker;
    if (role == SignRole)
        return m_signs[FromQt(ticker)] = SignOf(ticker);
    if (role == QuoteRole) {
        const auto& quote = QuoteOf(ticker);
        return quote ? QVariant::fromValue(*quote) : QVariant();
    }
    if (role == NameRole)
        return m_nameOf ? m_nameOf(ticker) : QString();
    if (role != Qt::ToolTipRole && role != Qt::AccessibleDescriptionRole)
        return {};
    const ItemMark mark = MarkWithQuote(ticker);
    return role == Qt::ToolTipRole ? mark.hint : mark.meaning;
}

void TickerModel::Arrange(const TickerOrder& order, const std::string& caption) {
    if (std::ranges::is_sorted(order))
        return;
    WriteUnwritten();
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    QStringList tickers;
    QList<int> places(m_tickers.size());
    for (const std::size_t from : order) {
        places[static_cast<qsizetype>(from)] = static_cast<int>(tickers.size());
        tickers << m_tickers.at(static_cast<qsizetype>(from));
    }
    m_tickers = std::move(tickers);
    const QModelIndexList kept = persistentIndexList();
    for (const QModelIndex& row : kept)
        changePersistentIndex(row, index(places.at(row.row())));
    Q_EMIT layoutChanged({}, VerticalSortHint);
    m_undo.Run(caption, [this] { Write(); });
}

bool TickerModel::moveRows(const QModelIndex& sourceParent, int row, int count,
                           const QModelIndex& targetParent, int before) {
    const bool isOfRows = !sourceParent.isValid() && !targetParent.isValid() && count == 1 &&
                          row >= 0 && row < rowCount() && before >= 0 && before <= rowCount();
    if (!isOfRows || before == row || before == row + 1)
        return false;
    Arrange(MovedOrder(static_cast<std::size_t>(rowCount()), static_cast<std::size_t>(row),
                       static_cast<std::size_t>(before)),
            "Move " + FromQt(m_tickers.at(row)) + " in the List");
    return true;
}

int TickerModel::DraggedRow(const QMimeData& mime) const {
    const QString dragged = QString::fromUtf8(mime.data(DragType()));
    const int row = dragged.section(u' ', 0, 0).toInt();
    const QString ticker = dragged.section(u' ', 1);
    if (!mime.hasFormat(DragType()) || row < 0 || row >= rowCount() || m_tickers.at(row) != ticker)
        return -1;
    return row;
}

Qt::ItemFlags TickerModel::flags(const QModelIndex& index) const {
    return index.isValid() ? QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled
                           : Qt::ItemIsDropEnabled;
}

Qt::DropActions TickerModel::supportedDragActions() const {
    return Qt::MoveAction | Qt::CopyAction;
}

Qt::DropActions TickerModel::supportedDropActions() const {
    return Qt::MoveAction | Qt::CopyAction;
}

QStringList TickerModel::mimeTypes() const {
    return {DragType()};
}

QMimeData* TickerModel::mimeData(const QModelIndexList& indexes) const {
    if (indexes.isEmpty())
        return nullptr;
    const int row = indexes.first().row();
    auto* mime = new QMimeData;
    mime->setData(DragType(), (QString::number(row) + u' ' + m_tickers.at(row)).toUtf8());
    return mime;
}

bool TickerModel::canDropMimeData(const QMimeData* mime, Qt::DropAction, int, int,
                                  const QModelIndex& parent) const {
    return mime && !parent.isValid() && DraggedRow(*mime) >= 0;
}

// A portfolio that holds a ticker does not get it twice by a slip of the hand: what is copied
// within the list is moved.
bool TickerModel::dropMimeData(const QMimeData* mime, Qt::DropAction action, int row, int column,
                               const QModelIndex& parent) {
    if (!canDropMimeData(mime, action, row, column, parent))
        return false;
    return moveRow({}, DraggedRow(*mime), {}, row < 0 ? rowCount() : row);
}

} // namespace tallowmere
