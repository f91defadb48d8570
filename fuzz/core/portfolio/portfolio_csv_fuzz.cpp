#include "core/portfolio/portfolio_csv.h"
#include "core/text/csv_text.h"

#include "check.h"

#include "core/text/runtime_error.h"

#include <cstddef>
#include <cstdint>

using namespace tallowmere;

// Whatever the table: no ticker of an import can break a stored list, no cell that is written is a
// formula, and what was read is read back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    CsvTable table;
    try {
        table = ReadCsv(input);
    } catch (const RuntimeError&) {
        return 0;
    }
    for (const auto& row : table.rows)
        for (const std::string& cell : row) {
            const std::string guarded = GuardedCell(cell);
            Check(guarded.empty() ||
                  std::string_view("=+-@\t\r").find(guarded[0]) == std::string_view::npos);
            Check(UnguardedCell(guarded) == cell);
        }
    std::vector<StoredPortfolio> portfolios;
    for (int n = 1; n <= kPortfolioCount; ++n)
        portfolios.push_back({n, "Portfolio #" + std::to_string(n), n == 1 ? "AOL|MSFT|" : ""});
    const CsvImport import = PlanCsvImport(table.rows, portfolios, "||AOL||mine|||||\r\n", 1);
    for (const auto& portfolio : import.portfolios)
        for (const std::string& ticker : portfolio.added)
            Check(!ticker.empty() && ticker.find('|') == std::string::npos);
    for (const auto& note : import.notes)
        Check(!note.note.empty() && note.note.find("|||||") == std::string::npos);
    return 0;
}
