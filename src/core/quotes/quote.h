#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What the sources of quotes know about a share or an index, and how a question to them can fail.
namespace tallowmere {

/// The last known price of a symbol. What a source did not say is empty.
struct Quote {
    std::string symbol; ///< in the program's own form, see symbol_dialect.h
    std::string name;
    double last = 0;
    std::optional<double> change;
    std::optional<double> changePercent;
    std::optional<double> open;
    std::optional<double> high;
    std::optional<double> low;
    std::optional<double> previousClose;
    std::optional<double> volume;
    std::optional<double> yearHigh; ///< of the last 52 weeks
    std::optional<double> yearLow;
    std::int64_t time = 0; ///< of the last trade, epoch seconds in UTC; 0 when not said
    std::string currency;
    std::string source;    ///< name of the source, as people know it
    bool delayed = true;   ///< not known to be of this very moment
    bool doubtful = false; ///< moved by half or more in a day: perhaps a split, perhaps an error
};

/// The span of time that a question covers.
enum class PriceSpan : std::uint8_t { Quote, Year, FiveDays, Day };

/// Prices of a symbol over a span, oldest first; `times` (epoch seconds, UTC) and `closes` have
/// the same length.
struct PriceSeries {
    std::string symbol;
    PriceSpan span = PriceSpan::Year;
    std::vector<std::int64_t> times;
    std::vector<double> closes;
    std::string currency;
    std::string source;
};

/// Why an answer is of no use.
enum class SourceFailure : std::uint8_t {
    Unreachable, ///< no answer, or an error of the server
    Blocked,     ///< the source refuses us: 403, 429, or a page for people where data is due
    Garbage,     ///< not the shape that the source is known for
    Empty        ///< well-formed, but nothing about what was asked
};

/// What an answer yields: quotes and series, or a failure.
struct SourceAnswer {
    std::vector<Quote> quotes;
    std::vector<PriceSeries> series;
    std::optional<SourceFailure> failure;

    bool Holds() const { return !quotes.empty() || !series.empty(); }
};

/// An answer as it came over the wire. A status of 0 means that there was none.
struct SourceResponse {
    int status = 0;
    std::string contentType;
    std::string retryAfter; ///< the header of this name, empty without one
    std::string body;
};

/// An answer that is nothing but a failure.
inline SourceAnswer Failed(SourceFailure failure) {
    return {{}, {}, failure};
}

} // namespace tallowmere
