#pragma once

#include "core/quotes/company_list.h"
#include "core/quotes/quote.h"
#include "core/quotes/symbol_dialect.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// Where quotes come from: a table in a file that people can edit, so that a source that moves or
/// is not wanted needs no new program.
namespace tallowmere {

/// The shape of a source's answers.
enum class SourceFormat : std::uint8_t {
    YahooChart,
    YahooSpark,
    Cnbc,
    Nasdaq,
    Cboe,
    FredCsv,
    TreasuryCsv
};

/// One source. Addresses hold {symbols} for the joined symbols of a batch, {range} and {interval}
/// for the span asked for, and {year}.
struct SourceRow {
    std::string key;  ///< in the file
    std::string name; ///< as shown beside every quote
    SourceFormat format = SourceFormat::Cnbc;
    bool enabled = true;
    std::string request;                ///< template of the address
    std::string item = "{symbol}";      ///< one symbol of a batch; {lower} is its lower case
    std::string indexItem = "{symbol}"; ///< the same for an index
    std::string separator = ",";        ///< between the symbols
    std::string userAgent;
    int batch = 1;        ///< most symbols of one request
    int minInterval = 15; ///< seconds between two questions for the same symbol
    int dailyCap = 1000;  ///< most requests of a day
    int timeout = 10;     ///< seconds until a request counts as failed
    std::vector<PriceSpan> gives = {PriceSpan::Quote};

    Dialect SpelledIn() const;
    bool Gives(PriceSpan span) const;
    /// Scheme-less host and port of the requests: requests to one host wait for each other.
    std::string Host() const;
};

/// The sources in the order in which they are tried.
struct SourceTable {
    int version = 0;
    std::string userAgent; ///< for the rows without one of their own
    std::vector<SourceRow> rows;
    CompanySource companies; ///< where names of companies come from
    std::vector<std::string>
        problems; ///< "<file>:<line>: <what is wrong>"; such values are left out
};

/// Reads the text of a table on top of `base`: what a row does not say stays as it is there, and a
/// list `order` puts the named sources first.
SourceTable ReadSourceTable(std::string_view text, std::string_view fileName,
                            SourceTable base = {});

/// The address that asks `row` for symbols (in the program's form, each with a spelling there).
std::string RequestAddress(const SourceRow& row, PriceSpan span,
                           const std::vector<std::string>& symbols, std::int64_t now);

/// What an answer of `row` says about the symbols asked for: checked from outside, parsed, and
/// believed only as far as it can be.
SourceAnswer ReadSourceAnswer(const SourceRow& row, PriceSpan span, const SourceResponse& response,
                              const std::vector<std::string>& symbols, std::int64_t now);

} // namespace tallowmere
