#include "core/quotes/source_schedule.h"

#include "core/quotes/quote_age.h"
#include "core/quotes/time_text.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::int64_t kDay = 86400;

/// Longest rest that a source can ask for.
constexpr std::int64_t kLongestRest = kDay;
/// Rest after a refusal that names no time, doubled with each further one.
constexpr std::int64_t kRefusedRest = 60;
constexpr std::int64_t kLongestRefusedRest = 3600;
/// Rest after no answer: short, since the network may be back at any moment. No rest is shorter.
constexpr std::int64_t kUnreachableRest = 15;
constexpr std::int64_t kLongestUnreachableRest = 120;
/// How often resting sources are tried again for whoever wants to know now.
constexpr std::int64_t kTrialInterval = 60;
/// How long a source is not asked for a symbol of which it had nothing, or nothing current.
constexpr std::int64_t kUnknownRest = 600;
/// What a request may take beyond its own time-out before it counts as lost.
constexpr std::int64_t kGrace = 5;
/// Between two requests that only the list of tickers causes.
constexpr std::int64_t kListedInterval = 60;

std::int64_t Doubled(std::int64_t base, int failures, std::int64_t most) {
    return std::min(most, base << std::min(failures, 12));
}

std::int64_t TimeOf(const Quote& quote) {
    return quote.time;
}

std::int64_t TimeOf(const PriceSeries& series) {
    return series.times.back();
}

Freshness WorthOf(const Quote& quote, std::int64_t now) {
    return FreshnessOf(quote.symbol, quote.time, now);
}

Freshness WorthOf(const PriceSeries& series, std::int64_t now) {
    return FreshnessOf(series, now);
}

/// Whether a value is to be taken in place of the kept one.
template <typename Value>
bool IsNewer(const Value& value, const Value& kept, std::int64_t now) {
    const Freshness worth = WorthOf(value, now);
    const Freshness keptWorth = WorthOf(kept, now);
    return worth != keptWorth ? worth > keptWorth : TimeOf(value) > TimeOf(kept);
}

/// Not every source knows the name of a company; one that was told stays.
void KeepName(Quote& quote, const Quote& before) {
    if (quote.name.empty())
        quote.name = before.name;
}

void KeepName(PriceSeries&, const PriceSeries&) {}

} // namespace

SourceSchedule::SourceSchedule(SourceTable table)
    : m_table(std::move(table)), m_rows(m_table.rows.size()) {
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        m_rows[row].host = m_table.rows[row].Host();
}

void SourceSchedule::Want(PriceSpan span, const std::vector<std::string>& symbols, std::int64_t now,
                          Urgency urgency) {
    const bool respectsRests = urgency == Urgency::Routine || urgency == Urgency::Listed;
    if (!respectsRests)
        EndOwnRests(urgency, now);
    for (const std::string& symbol : symbols) {
        const Key key(span, OwnSymbol(symbol));
        if (key.second.empty())
            continue;
        Subject& subject = m_subjects[key];
        if (urgency != Urgency::Listed)
            subject.listed = false;
        if (subject.pending)
            continue;
        subject.asked.resize(m_rows.size());
        subject.said.resize(m_rows.size());
        if (!respectsRests)
            for (std::size_t row = 0; row < m_rows.size(); ++row) {
                const std::int64_t interval = m_table.rows[row].minInterval;
                subject.asked[row].length =
                    std::min(subject.asked[row].length, std::max(kTrialInterval, interval));
            }
        subject.pending = true;
        subject.listed = urgency == Urgency::Listed;
        subject.answered = false;
        ++m_pending;
        PassOn(key, 0, now);
    }
}

void SourceSchedule::EndOwnRests(Urgency urgency, std::int64_t now) {
    Pause& untilNext = m_untilNextTrial[urgency];
    if (untilNext.Holds(now))
        return;
    const auto end = [&](Pause& rest) {
        if (!rest.Holds(now) || now - rest.since < kUnreachableRest)
            return;
        rest = {};
        untilNext = {now, kTrialInterval};
    };
    for (auto& [name, host] : m_hosts)
        if (!host.restIsAsked)
            end(host.rest);
    for (RowState& row : m_rows)
        end(row.rest);
}

/// Puts a symbol into the queue of the next source that can be asked about it.
void SourceSchedule::PassOn(const Key& key, std::size_t firstRow, std::int64_t now) {
    Subject& subject = m_subjects[key];
    for (std::size_t i = firstRow; i < m_rows.size(); ++i) {
        const SourceRow& row = m_table.rows[i];
        if (!row.enabled || !row.Gives(key.first) || !ToDialect(key.second, row.SpelledIn()))
            continue;
        if (subject.asked[i].Holds(now)) {
            // Its last answer is still the newest that this source will give.
            if (subject.Holds() && !subject.stale && subject.source == i) {
                if (IsCurrent(subject, now))
                    return Settle(subject, false);
                subject.answered = true;
            }
            continue;
        }
        subject.queuedAt = now;
        m_rows[i].queues[key.first].push_back(key);
        return;
    }
    Settle(subject, !subject.answered);
}

bool SourceSchedule::IsCurrent(const Subject& subject, std::int64_t now) {
    return subject.quote ? WorthOf(*subject.quote, now) == Freshness::Current
                         : subject.series && WorthOf(*subject.series, now) == Freshness::Current;
}

void SourceSchedule::Settle(Subject& subject, bool gaveUp) {
    subject.pending = false;
    subject.stale = gaveUp;
    --m_pending;
}

bool SourceSchedule::MayAsk(std::size_t row, std::int64_t now) const {
    const RowState& state = m_rows[row];
    const auto host = m_hosts.find(state.host);
    const bool hostRests = host != m_hosts.end() && host->second.rest.Holds(now);
    const bool spent = state.day == now / kDay && state.requestsToday >= m_table.rows[row].dailyCap;
    return !hostRests && !state.rest.Holds(now) && !spent && m_table.rows[row].dailyCap > 0;
}

std::optional<SourceRequest> SourceSchedule::Next(std::int64_t now) {
    GiveUpLateFlights(now);
    // Of what only the list wants, the queue that has waited longest.
    std::deque<Key>* listed = nullptr;
    std::size_t listedRow = 0;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        for (auto& [span, queue] : m_rows[i].queues) {
            if (queue.empty() || m_hosts[m_rows[i].host].inFlight)
                continue;
            if (!MayAsk(i, now)) {
                for (const Key& key : std::exchange(queue, {})) {
                    m_subjects[key].said[i] = Reply::Missing;
                    PassOn(key, i + 1, now);
                }
            } else if (PutOthersFirst(queue)) {
                return Send(i, queue, now);
            } else if (!listed ||
                       m_subjects[queue.front()].queuedAt < m_subjects[listed->front()].queuedAt) {
                listed = &queue;
                listedRow = i;
            }
        }
    if (!listed || m_untilNextListed.Holds(now))
        return std::nullopt;
    m_untilNextListed = {now, kListedInterval};
    return Send(listedRow, *listed, now);
}

/// Leaves what only the list wants to the end; whether there is anything else.
bool SourceSchedule::PutOthersFirst(std::deque<Key>& queue) {
    const auto isForOthers = [this](const Key& key) { return !m_subjects[key].listed; };
    return std::stable_partition(queue.begin(), queue.end(), isForOthers) != queue.begin();
}

void SourceSchedule::WithdrawListed() {
    const auto withdraw = [this](const Key& key) {
        Subject& subject = m_subjects[key];
        if (!subject.listed)
            return false;
        subject.pending = false;
        --m_pending;
        return true;
    };
    for (RowState& row : m_rows)
        for (auto& entry : row.queues)
            std::erase_if(entry.second, withdraw);
}

std::optional<std::size_t> SourceSchedule::FirstRowOf(PriceSpan span) const {
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        if (m_table.rows[i].enabled && m_table.rows[i].Gives(span))
            return i;
    return std::nullopt;
}

std::size_t SourceSchedule::BatchOf(PriceSpan span) const {
    const auto row = FirstRowOf(span);
    return row ? static_cast<std::size_t>(m_table.rows[*row].batch) : 0;
}

std::size_t SourceSchedule::ListedWaiting(PriceSpan span) const {
    const auto row = FirstRowOf(span);
    if (!row)
        return 0;
    const auto queue = m_rows[*row].queues.find(span);
    if (queue == m_rows[*row].queues.end())
        return 0;
    return static_cast<std::size_t>(std::ranges::count_if(
        queue->second, [this](const Key& key) { return m_subjects.at(key).listed; }));
}

SourceRequest SourceSchedule::Send(std::size_t row, std::deque<Key>& queue, std::int64_t now) {
    const SourceRow& source = m_table.rows[row];
    Flight flight;
    flight.row = row;
    flight.span = queue.front().first;
    flight.patience = {now, source.timeout + kGrace};
    const auto count = std::min(queue.size(), static_cast<std::size_t>(source.batch));
    for (std::size_t i = 0; i < count; ++i) {
        m_subjects[queue.front()].asked[row] = {now, source.minInterval};
        flight.symbols.push_back(std::move(queue.front().second));
        queue.pop_front();
    }

    RowState& state = m_rows[row];
    if (state.day != now / kDay) {
        state.day = now / kDay;
        state.requestsToday = 0;
    }
    ++state.requestsToday;
    const int id = ++m_lastId;
    m_hosts[state.host].inFlight = id;
    SourceRequest request{id, RequestAddress(source, flight.span, flight.symbols, now),
                          source.userAgent.empty() ? m_table.userAgent : source.userAgent,
                          source.timeout, flight.symbols};
    m_flights.emplace(id, std::move(flight));
    return request;
}

void SourceSchedule::Answer(int id, const SourceResponse& response, std::int64_t now) {
    const auto flight = m_flights.find(id);
    if (flight == m_flights.end())
        return;
    const auto answer = ReadSourceAnswer(m_table.rows[flight->second.row], flight->second.span,
                                         response, flight->second.symbols, now);
    EndFlight(id, answer, response.retryAfter, now);
}

void SourceSchedule::GiveUpLateFlights(std::int64_t now) {
    std::vector<int> late;
    for (const auto& [id, flight] : m_flights)
        if (!flight.patience.Holds(now))
            late.push_back(id);
    for (const int id : late)
        EndFlight(id, Failed(SourceFailure::Unreachable), {}, now);
}

void SourceSchedule::EndFlight(int id, const SourceAnswer& answer, std::string_view retryAfter,
                               std::int64_t now) {
    const Flight flight = std::move(m_flights.extract(id).mapped());
    RowState& state = m_rows[flight.row];
    HostState& host = m_hosts[state.host];
    host.inFlight.reset();
    state.lastFailure = answer.failure;
    if (answer.failure && *answer.failure != SourceFailure::Empty) {
        Rest(flight.row, *answer.failure, retryAfter, now);
    } else {
        host.failures = 0;
        state.failures = 0;
        if (flight.span == PriceSpan::Quote)
            for (const Quote& quote : answer.quotes)
                Keep(quote, &Subject::quote, flight, now);
        else
            for (const PriceSeries& series : answer.series)
                Keep(series, &Subject::series, flight, now);
        if (!answer.failure)
            state.lastGood = now;
    }

    const bool answered = !answer.failure || *answer.failure == SourceFailure::Empty;
    for (const std::string& symbol : flight.symbols) {
        const Key key(flight.span, symbol);
        Subject& subject = m_subjects[key];
        if (!subject.pending)
            continue;
        subject.said[flight.row] = answered ? Reply::Answered : Reply::Missing;
        if (answered)
            subject.asked[flight.row].length =
                std::max<std::int64_t>(kUnknownRest, m_table.rows[flight.row].minInterval);
        PassOn(key, flight.row + 1, now);
    }
}

template <typename Value>
void SourceSchedule::Keep(const Value& value, std::optional<Value> Subject::*member,
                          const Flight& flight, std::int64_t now) {
    Subject& subject = m_subjects[{flight.span, value.symbol}];
    const std::optional<Value>& kept = subject.*member;
    // Of equal answers to one search that of the source that comes first in the order stays.
    if (!kept || IsNewer(value, *kept, now) || (!subject.answered && !IsNewer(*kept, value, now))) {
        Value newer = value;
        if (kept)
            KeepName(newer, *kept);
        subject.*member = std::move(newer);
        subject.receivedAt = now;
        subject.source = flight.row;
        subject.answered = true;
    }
    if (WorthOf(value, now) == Freshness::Current) {
        subject.source = flight.row;
        Settle(subject, false);
    }
}

/// A refusal and a missing answer are about the whole host, an unreadable answer about the source.
void SourceSchedule::Rest(std::size_t row, SourceFailure failure, std::string_view retryAfter,
                          std::int64_t now) {
    RowState& state = m_rows[row];
    HostState& host = m_hosts[state.host];
    if (failure == SourceFailure::Garbage) {
        state.rest = {now, Doubled(kRefusedRest, state.failures, kLongestRefusedRest)};
        ++state.failures;
        return;
    }
    const auto asked = ReadRetryAfter(retryAfter, now);
    const auto own = failure == SourceFailure::Blocked
                         ? Doubled(kRefusedRest, host.failures, kLongestRefusedRest)
                         : Doubled(kUnreachableRest, host.failures, kLongestUnreachableRest);
    host.rest = {now, std::min(asked.value_or(own), kLongestRest)};
    host.restIsAsked = asked.has_value();
    ++host.failures;
}

const SourceSchedule::Subject* SourceSchedule::Find(PriceSpan span, std::string_view symbol) const {
    const auto found = m_subjects.find(Key(span, OwnSymbol(symbol)));
    return found == m_subjects.end() ? nullptr : &found->second;
}

bool SourceSchedule::IsPending(PriceSpan span, std::string_view symbol) const {
    const Subject* subject = Find(span, symbol);
    return subject && subject->pending;
}

bool SourceSchedule::IsUnknown(std::string_view symbol) const {
    const Subject* subject = Find(PriceSpan::Quote, symbol);
    if (!subject || subject->pending || subject->Holds())
        return false;
    const auto said = [&](Reply reply) {
        return std::find(subject->said.begin(), subject->said.end(), reply) != subject->said.end();
    };
    return said(Reply::Answered) && !said(Reply::Missing);
}

Kept<Quote> SourceSchedule::FindQuote(std::string_view symbol) const {
    const Subject* subject = Find(PriceSpan::Quote, symbol);
    if (!subject || !subject->quote)
        return {};
    return {&*subject->quote, subject->receivedAt, subject->stale};
}

Kept<PriceSeries> SourceSchedule::FindSeries(PriceSpan span, std::string_view symbol) const {
    const Subject* subject = Find(span, symbol);
    if (!subject || !subject->series)
        return {};
    return {&*subject->series, subject->receivedAt, subject->stale};
}

std::vector<SourceReport> SourceSchedule::Reports(std::int64_t now) const {
    std::vector<SourceReport> reports;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const RowState& state = m_rows[i];
        SourceReport report;
        report.name = m_table.rows[i].name;
        report.enabled = m_table.rows[i].enabled;
        report.requestsToday = state.day == now / kDay ? state.requestsToday : 0;
        const auto until = [&](const Pause& rest) {
            return rest.Holds(now) ? rest.since + rest.length : 0;
        };
        const auto host = m_hosts.find(state.host);
        report.pausedUntil = std::max(
            until(state.rest), host == m_hosts.end() ? std::int64_t{0} : until(host->second.rest));
        report.lastGood = state.lastGood;
        report.lastFailure = state.lastFailure;
        reports.push_back(std::move(report));
    }
    return reports;
}

std::vector<KeptQuote> SourceSchedule::KeptQuotes() const {
    std::vector<KeptQuote> kept;
    for (const auto& [key, subject] : m_subjects)
        if (subject.quote)
            kept.push_back({*subject.quote, subject.receivedAt});
    return kept;
}

void SourceSchedule::Restore(const std::vector<KeptQuote>& quotes) {
    for (const KeptQuote& kept : quotes) {
        Subject& subject = m_subjects[{PriceSpan::Quote, kept.quote.symbol}];
        subject.quote = kept.quote;
        subject.receivedAt = kept.receivedAt;
        subject.stale = true;
        subject.source = m_rows.size(); // none of this run
    }
}

} // namespace tallowmere
