#pragma once

#include "core/portfolio/stored_portfolio.h"
#include "core/text/csv_text.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Portfolios, their names and the notes on tickers as a table, out and in.
namespace tallowmere {

/// A row for each ticker with number and name of its portfolio and with its note, below a row of
/// headings. A portfolio that only has a name, and a note on a ticker that is in no portfolio, have
/// rows of their own. `notes` is the content of the store of notes.
CsvRows PortfolioRows(const std::vector<StoredPortfolio>& portfolios, std::string_view notes);

/// In which columns of a table there is what, counted from 0.
struct CsvColumns {
    std::optional<std::size_t> portfolio, name, ticker, note;
    bool hasHeadings = false;
    friend bool operator==(const CsvColumns&, const CsvColumns&) = default;
};

/// Finds the columns by their headings, which may be those of spreadsheets and of programs that
/// keep portfolios, in English and German. Without any, the first column is that of the tickers
/// when all that stands in it can be one: in capitals, where there are other columns. Has no column
/// of tickers when there is none.
CsvColumns FindColumns(const CsvRows& rows);

/// What an import would write.
struct CsvImport {
    struct Portfolio {
        int number;
        std::vector<std::string> added;  ///< tickers that go to its end
        std::optional<std::string> name; ///< another one than now
    };
    struct Note {
        std::string ticker, note; ///< as it is shown, with plain line feeds
        bool isReplaced;          ///< there is another one now
    };
    std::vector<Portfolio> portfolios; ///< those that change, in their order
    std::vector<Note> notes;
    std::size_t known = 0;   ///< tickers that are there already
    std::size_t skipped = 0; ///< rows of which nothing can be taken
    bool IsAny() const { return !portfolios.empty() || !notes.empty(); }
};

/// What the rows of a table would change. A row says which portfolio it is about by its number or
/// its name, a name that no portfolio has takes the first one that is empty and has no name;
/// without either it is about portfolio `target`. Tickers are taken as if they were typed.
CsvImport PlanCsvImport(const CsvRows& rows, const std::vector<StoredPortfolio>& portfolios,
                        std::string_view notes, int target);

/// The import in lines for people, what changes first: "Portfolio 2 (Tech): AMD and GE added".
std::vector<std::string> ImportLines(const CsvImport& import,
                                     const std::vector<StoredPortfolio>& portfolios);

} // namespace tallowmere
