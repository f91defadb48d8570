#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Tables as text, a line a row, as spreadsheets write and read them.
namespace tallowmere {

using CsvRows = std::vector<std::vector<std::string>>;

/// A table and in what form it was written.
struct CsvTable {
    CsvRows rows; ///< cells are UTF-8; empty lines are left out
    char delimiter = ',';
    char quote = '"';
    std::string_view encoding; ///< its name, for people
};

/// Reads a table whatever program wrote it: in UTF-8, UTF-16 or Windows-1252, its cells parted by
/// commas, semicolons, tabs or bars, quoted by " or ', with a first line `sep=;` or without. Blanks
/// around a cell that is not quoted go; the mark that WriteCsv puts before what spreadsheets would
/// run goes, too. Throws RuntimeError when a quote is not closed.
CsvTable ReadCsv(std::string_view bytes);

/// The table in UTF-8 with a byte order mark, by which spreadsheets know it; all cells quoted,
/// parted by commas, lines ended by carriage return and line feed. A cell that spreadsheets would
/// take for a formula, as it begins with one of = + - @, a tab or a carriage return, gets an
/// apostrophe before it.
std::string WriteCsv(const CsvRows& rows);

/// A cell with that apostrophe, if it needs one, and without. Each cell comes back from the two.
std::string GuardedCell(std::string_view cell);
std::string UnguardedCell(std::string_view cell);

} // namespace tallowmere
