#include "core/portfolio/portfolio_csv.h"

#include "core/portfolio/keyed_store.h"
#include "core/portfolio/ticker_list.h"
#include "core/text/bytes.h"
#include "core/tools/reminders.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

namespace tallowmere {

namespace {

struct Heading {
    std::string_view words; ///< in lower case
    std::optional<std::size_t> CsvColumns::*column;
};

// clang-format off
constexpr Heading kHeadings[] = {
    {"portfolio",         &CsvColumns::portfolio},
    {"portfolio number",  &CsvColumns::portfolio},
    {"watchlist",         &CsvColumns::portfolio},
    {"watch list",        &CsvColumns::portfolio},
    {"list",              &CsvColumns::portfolio},
    {"depot",             &CsvColumns::portfolio},
    {"portfolio name",    &CsvColumns::name},
    {"ticker",            &CsvColumns::ticker},
    {"tickers",           &CsvColumns::ticker},
    {"ticker symbol",     &CsvColumns::ticker},
    {"ticker-symbol",     &CsvColumns::ticker},
    {"symbol",            &CsvColumns::ticker},
    {"symbols",           &CsvColumns::ticker},
    {"stock",             &CsvColumns::ticker},
    {"k\xC3\xBCrzel",     &CsvColumns::ticker},
    {"note",              &CsvColumns::note},
    {"notes",             &CsvColumns::note},
    {"comment",           &CsvColumns::note},
    {"comments",          &CsvColumns::note},
    {"notiz",             &CsvColumns::note},
    {"notizen",           &CsvColumns::note},
    {"bemerkung",         &CsvColumns::note},
    {"kommentar",         &CsvColumns::note},
};
// clang-format on

/// What a ticker can be where no heading says that it is one.
constexpr std::size_t kLongestTicker = 15;

bool IsLetter(char c) {
    return c >= 'A' && c <= 'Z';
}

bool CanBeTicker(std::string_view cell) {
    const auto fits = [](char c) {
        return IsLetter(c) || (c >= '0' && c <= '9') || Contains(".-^=:/", std::string_view(&c, 1));
    };
    return cell.size() <= kLongestTicker && std::all_of(cell.begin(), cell.end(), fits) &&
           std::any_of(cell.begin(), cell.end(), IsLetter);
}

/// A text in one line without what no line holds.
std::string OneLine(std::string_view text) {
    std::string line(text);
    for (char& c : line)
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            c = ' ';
    return std::string(Trim(line));
}

std::string DefaultName(int number) {
    return "Portfolio #" + std::to_string(number);
}

std::map<std::string, std::string> NotesIn(std::string_view content) {
    std::map<std::string, std::string> notes;
    for (const Reminder& record : ReadReminders(content))
        if (!record.text.empty())
            notes.emplace(record.key, record.text);
    return notes;
}

/// Puts the rows of a table into an import, one after the other.
class Importer {
public:
    Importer(const std::vector<StoredPortfolio>& portfolios, std::string_view notes, int target,
             const CsvColumns& columns)
        : m_columns(columns), m_target(target), m_oldNotes(NotesIn(notes)) {
        for (const StoredPortfolio& portfolio : portfolios)
            m_lists.push_back({portfolio, SplitTickerList(portfolio.tickers), {}, {}});
    }

    void Take(const std::vector<std::string>& row) {
        List* list = ListOf(Cell(row, m_columns.portfolio), Cell(row, m_columns.name));
        const std::string cell = Cell(row, m_columns.ticker);
        const bool hasName =
            list && TakeName(*list, Cell(row, m_columns.portfolio), Cell(row, m_columns.name));
        const std::vector<std::string> tickers =
            list ? AddTickers(*list, cell) : std::vector<std::string>();
        if (tickers.size() == 1)
            TakeNote(tickers.front(), Cell(row, m_columns.note));
        if (tickers.empty() && !hasName)
            ++m_import.skipped;
    }

    CsvImport Result() {
        for (List& list : m_lists)
            if (!list.added.empty() || list.name)
                m_import.portfolios.push_back(
                    {list.portfolio.number, std::move(list.added), std::move(list.name)});
        for (auto& [ticker, note] : m_notes)
            m_import.notes.push_back({ticker, note, m_oldNotes.contains(ticker)});
        return std::move(m_import);
    }

private:
    struct List {
        StoredPortfolio portfolio;
        std::vector<std::string> tickers;
        std::vector<std::string> added;
        std::optional<std::string> name;

        const std::string& Name() const { return name ? *name : portfolio.name; }
        bool IsFree() const {
            return tickers.empty() && !name && portfolio.name == DefaultName(portfolio.number);
        }
    };

    static std::string Cell(const std::vector<std::string>& row,
                            const std::optional<std::size_t>& column) {
        return column && *column < row.size() ? row[*column] : std::string();
    }

    List* Named(const std::string& name) {
        const auto found = std::find_if(m_lists.begin(), m_lists.end(), [&](const List& list) {
            return ToLower(list.Name()) == ToLower(name);
        });
        return found == m_lists.end() ? nullptr : &*found;
    }

    /// The portfolio of a row; null when it is about one of which there is none and can be none.
    List* ListOf(const std::string& portfolio, const std::string& name) {
        const std::string wanted = OneLine(portfolio);
        int number = 0;
        const auto [end, error] =
            std::from_chars(wanted.data(), wanted.data() + wanted.size(), number);
        if (!wanted.empty() && error == std::errc() && end == wanted.data() + wanted.size())
            return number >= 1 && number <= kPortfolioCount
                       ? &m_lists[static_cast<std::size_t>(number - 1)]
                       : nullptr;
        const std::string called = wanted.empty() ? OneLine(name) : wanted;
        if (called.empty())
            // A note may be on a ticker that is in no portfolio.
            return m_columns.portfolio && m_columns.name
                       ? &m_nowhere
                       : &m_lists[static_cast<std::size_t>(m_target - 1)];
        if (List* list = Named(called))
            return list;
        const auto free = std::find_if(m_lists.begin(), m_lists.end(),
                                       [](const List& list) { return list.IsFree(); });
        if (free == m_lists.end())
            return nullptr;
        free->name = called;
        return &*free;
    }

    bool TakeName(List& list, const std::string& portfolio, const std::string& cell) {
        const std::string name = OneLine(cell);
        if (&list == &m_nowhere || name.empty() || OneLine(portfolio).empty())
            return false;
        if (name != list.Name())
            list.name = name;
        return true;
    }

    /// The tickers of a cell, which go to the end of the list unless they are in it.
    std::vector<std::string> AddTickers(List& list, const std::string& cell) {
        const std::string text = ReplaceAll(OneLine(cell), "|", " ");
        // What is there as it stands is no entry to be split.
        const bool isThere =
            std::find(list.tickers.begin(), list.tickers.end(), text) != list.tickers.end();
        if (!text.empty() && isThere) {
            ++m_import.known;
            return {text};
        }
        const TickerEntry entry = EnterTickers(text, list.tickers);
        m_import.known += entry.known.size();
        if (&list != &m_nowhere) {
            list.tickers.insert(list.tickers.end(), entry.added.begin(), entry.added.end());
            list.added.insert(list.added.end(), entry.added.begin(), entry.added.end());
        }
        std::vector<std::string> tickers = entry.added;
        tickers.insert(tickers.end(), entry.known.begin(), entry.known.end());
        return tickers;
    }

    void TakeNote(const std::string& ticker, const std::string& cell) {
        const std::string stored = StorableNote(StoredLines(cell));
        if (stored.empty())
            return;
        const auto old = m_oldNotes.find(ticker);
        if (old == m_oldNotes.end() || old->second != stored)
            m_notes[ticker] = ShownLines(stored);
        else
            m_notes.erase(ticker);
    }

    CsvColumns m_columns;
    int m_target;
    std::map<std::string, std::string> m_oldNotes;
    std::vector<List> m_lists;
    List m_nowhere{};
    std::map<std::string, std::string> m_notes;
    CsvImport m_import;
};

} // namespace

CsvRows PortfolioRows(const std::vector<StoredPortfolio>& portfolios, std::string_view notes) {
    CsvRows rows{{"Portfolio", "Portfolio Name", "Ticker", "Note"}};
    const std::map<std::string, std::string> texts = NotesIn(notes);
    std::set<std::string> told;
    for (const auto& [number, name, stored] : portfolios) {
        const std::vector<std::string> tickers = SplitTickerList(stored);
        if (tickers.empty() && name != DefaultName(number))
            rows.push_back({std::to_string(number), name, "", ""});
        for (const std::string& ticker : tickers) {
            const auto note = texts.find(ticker);
            told.insert(ticker);
            rows.push_back({std::to_string(number), name, ticker,
                            note == texts.end() ? "" : ShownLines(note->second)});
        }
    }
    for (const auto& [ticker, note] : texts)
        if (!told.contains(ticker))
            rows.push_back({"", "", ticker, ShownLines(note)});
    return rows;
}

CsvColumns FindColumns(const CsvRows& rows) {
    CsvColumns columns;
    if (rows.empty())
        return columns;
    for (std::size_t n = 0; n < rows.front().size(); ++n)
        for (const auto& [words, column] : kHeadings)
            if (ToLower(OneLine(rows.front()[n])) == words && !(columns.*column))
                columns.*column = n;
    columns.hasHeadings = columns.ticker.has_value();
    if (columns.hasHeadings)
        return columns;
    const bool areTickers = std::all_of(rows.begin(), rows.end(), [](const auto& row) {
        // A plain list may be typed in any way; beside other columns a word may be anything.
        return row.size() == 1 ? CanBeTicker(ToUpper(row.front())) : CanBeTicker(row.front());
    });
    return areTickers ? CsvColumns{{}, {}, 0, {}, false} : CsvColumns();
}

CsvImport PlanCsvImport(const CsvRows& rows, const std::vector<StoredPortfolio>& portfolios,
                        std::string_view notes, int target) {
    const CsvColumns columns = FindColumns(rows);
    Importer importer(portfolios, notes, target, columns);
    if (columns.ticker)
        for (std::size_t n = columns.hasHeadings ? 1 : 0; n < rows.size(); ++n)
            importer.Take(rows[n]);
    return importer.Result();
}

std::vector<std::string> ImportLines(const CsvImport& import,
                                     const std::vector<StoredPortfolio>& portfolios) {
    std::vector<std::string> lines;
    for (const auto& [number, added, name] : import.portfolios) {
        const std::string& old = portfolios[static_cast<std::size_t>(number - 1)].name;
        const std::string head = "Portfolio " + std::to_string(number) + " (" + old + "): ";
        if (name)
            lines.push_back(head + "is called \"" + *name + "\"");
        for (const std::string& ticker : added)
            lines.push_back(head + ticker + " added");
    }
    for (const auto& [ticker, note, isReplaced] : import.notes)
        lines.push_back("Note on " + ticker + (isReplaced ? " replaced: " : " added: ") +
                        FirstLine(note));
    return lines;
}

} // namespace tallowmere
