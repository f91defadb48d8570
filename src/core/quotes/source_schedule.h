#pragma once

#include "core/quotes/quote_store.h"
#include "core/quotes/source_table.h"

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Which source is asked what, and when: a machine without a clock or a network of its own.
namespace tallowmere {

/// A span of time in which something is not done. A clock that was set back ends it, so that it
/// never lasts longer than it was meant to.
struct Pause {
    std::int64_t since = 0;
    std::int64_t length = 0;

    bool Holds(std::int64_t now) const { return now >= since && now - since < length; }
};

/// A request that is to be sent now.
struct SourceRequest {
    int id = 0;
    std::string address;
    std::string userAgent;
    int timeout = 0;                  ///< in seconds
    std::vector<std::string> symbols; ///< that it is about, in the program's form
};

/// Who waits for an answer.
enum class Urgency : std::uint8_t {
    Listed,  ///< the list of tickers: a routine that causes one request a minute at most
    Routine, ///< a page that loads itself again and again: it respects every rest
    Regular, ///< the program, every few minutes: it tries what failed
    Asked    ///< a person: the same, whatever the program tried just before
};

/// What is known about a symbol.
template <typename Value>
struct Kept {
    const Value* value = nullptr; ///< null when nothing ever was; valid until the next call
    std::int64_t receivedAt = 0;  ///< epoch seconds
    bool stale = false;           ///< a later attempt to get a newer one ended in nothing
};

/// How a source has been doing.
struct SourceReport {
    std::string name;
    bool enabled = true;
    int requestsToday = 0;
    std::int64_t pausedUntil = 0; ///< 0 when it may be asked
    std::int64_t lastGood = 0;    ///< 0 for never
    std::optional<SourceFailure> lastFailure;
};

/// Asks the sources of a table for symbols, in order, until each symbol has an answer or no source
/// is left. An answer that is older than it may be, or does not say its time, is kept as long as
/// there is no newer one, and the search goes on. One request at a time goes to a host; a source
/// that refuses or fails rests; no symbol is asked of the same source again before its interval.
/// What only the list wants goes with the requests of others, and else waits for its minute.
/// Every `now` is in epoch seconds.
class SourceSchedule {
public:
    explicit SourceSchedule(SourceTable table);

    /// Puts symbols (in any spelling) on the list of what is to be fetched. What is on it, or was
    /// fetched a moment ago, is not put there again. But for a routine, sources that rest on our
    /// own account are tried again, once a minute; a rest that a source asked for stands.
    void Want(PriceSpan span, const std::vector<std::string>& symbols, std::int64_t now,
              Urgency urgency = Urgency::Routine);

    /// Takes off the list what only the list of tickers wants and was not sent yet.
    void WithdrawListed();

    /// How many symbols the first source that gives a span takes at once, 0 when none gives it.
    std::size_t BatchOf(PriceSpan span) const;

    /// How many symbols only the list wants that wait for that source.
    std::size_t ListedWaiting(PriceSpan span) const;

    /// The next request to send, none when all is sent, answered or given up. To be asked again
    /// after each answer, and once a second while IsBusy.
    std::optional<SourceRequest> Next(std::int64_t now);

    /// Takes the answer to a request. An answer that comes after its time is passed over.
    void Answer(int id, const SourceResponse& response, std::int64_t now);

    /// Whether anything is wanted that was neither answered nor given up.
    bool IsBusy() const { return m_pending > 0; }
    bool IsPending(PriceSpan span, std::string_view symbol) const;

    /// Whether the last search for a quote ended with nothing because the sources that could be
    /// asked do not have the symbol: at least one said so, and none failed to answer.
    bool IsUnknown(std::string_view symbol) const;

    Kept<Quote> FindQuote(std::string_view symbol) const;
    Kept<PriceSeries> FindSeries(PriceSpan span, std::string_view symbol) const;

    std::vector<SourceReport> Reports(std::int64_t now) const;

    /// All quotes at hand, for a later run.
    std::vector<KeptQuote> KeptQuotes() const;
    /// Takes the quotes of an earlier run. They are stale until there are newer ones.
    void Restore(const std::vector<KeptQuote>& quotes);

private:
    using Key = std::pair<PriceSpan, std::string>;

    /// What a source said of a symbol.
    enum class Reply : std::uint8_t { None, Answered, Missing };

    /// One symbol over one span: what is known and how far the present search is.
    struct Subject {
        bool pending = false;
        bool listed = false;   ///< nobody but the list waits for it
        bool answered = false; ///< in the present search, if not by something current
        bool stale = false;
        std::size_t source = 0; ///< that gave the value, or ended the last search
        std::int64_t queuedAt = 0;
        std::int64_t receivedAt = 0;
        std::optional<Quote> quote;
        std::optional<PriceSeries> series;
        std::vector<Pause> asked; ///< by source
        std::vector<Reply> said;  ///< by source, when it was asked last

        bool Holds() const { return quote || series; }
    };

    struct HostState {
        std::optional<int> inFlight;
        Pause rest;
        bool restIsAsked = false; ///< by the host itself
        int failures = 0;         ///< in a row
    };

    struct RowState {
        std::string host;
        std::map<PriceSpan, std::deque<Key>> queues;
        Pause rest;
        int failures = 0; ///< in a row, of answers that could not be read
        std::int64_t day = 0;
        int requestsToday = 0;
        std::int64_t lastGood = 0;
        std::optional<SourceFailure> lastFailure;
    };

    struct Flight {
        std::size_t row = 0;
        PriceSpan span = PriceSpan::Quote;
        std::vector<std::string> symbols;
        Pause patience;
    };

    const Subject* Find(PriceSpan span, std::string_view symbol) const;
    std::optional<std::size_t> FirstRowOf(PriceSpan span) const;
    void EndOwnRests(Urgency urgency, std::int64_t now);
    void PassOn(const Key& key, std::size_t firstRow, std::int64_t now);
    static bool IsCurrent(const Subject& subject, std::int64_t now);
    void Settle(Subject& subject, bool gaveUp);
    bool MayAsk(std::size_t row, std::int64_t now) const;
    bool PutOthersFirst(std::deque<Key>& queue);
    SourceRequest Send(std::size_t row, std::deque<Key>& queue, std::int64_t now);
    void EndFlight(int id, const SourceAnswer& answer, std::string_view retryAfter,
                   std::int64_t now);
    void Rest(std::size_t row, SourceFailure failure, std::string_view retryAfter,
              std::int64_t now);
    void GiveUpLateFlights(std::int64_t now);
    template <typename Value>
    void Keep(const Value& value, std::optional<Value> Subject::*member, const Flight& flight,
              std::int64_t now);

    SourceTable m_table;
    std::vector<RowState> m_rows;
    std::map<std::string, HostState> m_hosts;
    std::map<Key, Subject> m_subjects;
    std::map<int, Flight> m_flights;
    std::map<Urgency, Pause> m_untilNextTrial; ///< of sources that rest
    Pause m_untilNextListed;                   ///< request that the list alone causes
    int m_lastId = 0;
    std::size_t m_pending = 0;
};

} // namespace tallowmere
