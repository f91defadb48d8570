#include "core/quotes/quote_store.h"
#include "core/quotes/source_schedule.h"
#include "core/quotes/time_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <set>

namespace {

using namespace tallowmere;

constexpr std::int64_t kStart = 1795208400;
constexpr int kCap = 12;
constexpr int kInterval = 15;
constexpr int kPatience = 15; // the time-out and what a flight may take beyond it

// Four sources on two hosts, one with an interval of its own, one for prices over a span.
constexpr std::string_view kSources = R"(
[sources.a]
format = "cnbc"
request = "https://one.example/a?{symbols}"
batch = 2
daily_cap = 12
[sources.b]
format = "cnbc"
request = "https://two.example/b?{symbols}"
daily_cap = 12
[sources.c]
format = "cnbc"
request = "https://one.example/c?{symbols}"
daily_cap = 12
min_interval = 15
[sources.d]
format = "yahoo-spark"
request = "https://two.example/d-{range}?{symbols}"
batch = 3
daily_cap = 12
gives = ["year", "five-days", "day"]
)";

constexpr const char* kSymbols[] = {"A", "B", "C", "^DJI", "VFINX"};
constexpr PriceSpan kSpans[] = {PriceSpan::Quote, PriceSpan::Year, PriceSpan::FiveDays,
                                PriceSpan::Day};

std::string HostOf(const std::string& address) {
    return address.substr(0, address.find('/', 8));
}

/// What the source of prices over a span answers when it does.
SourceResponse Series(const std::string& symbols, std::int64_t now) {
    const std::string first = symbols.substr(0, symbols.find(','));
    return {200, "application/json", "",
            "{\"" + first + R"(":{"symbol":")" + first + R"(","timestamp":[)" +
                std::to_string(now - 86400) + "," + std::to_string(now - 60) +
                R"(],"close":[7,8]}})"};
}

SourceResponse Answer(const std::string& address, std::uint8_t kind, std::int64_t now) {
    const std::string symbols = address.substr(address.find('?') + 1);
    if (address.find("/d-") != std::string::npos && kind % 10 < 3)
        return Series(symbols, kind % 10 == 0 ? now : now - 30 * 86400);
    const auto row = [&](const std::string& time) {
        return R"({"symbol":")" + symbols.substr(0, symbols.find(',')) +
               R"(","last":"7","last_time":")" + time + "\"}";
    };
    const auto list = [](const std::string& rows) {
        return SourceResponse{200, "application/json", "",
                              R"({"FormattedQuoteResult":{"FormattedQuote":[)" + rows + "]}}"};
    };
    const NewYorkClock clock = AtNewYork(now);
    const std::string today = std::to_string(clock.year) + (clock.month < 10 ? "-0" : "-") +
                              std::to_string(clock.month) + (clock.day < 10 ? "-0" : "-") +
                              std::to_string(clock.day);
    switch (kind % 10) {
    case 0:
        return list(row(today));
    case 1:
        return list(row("2026-11-02"));
    case 2:
        return list(row(""));
    case 3:
        return list("");
    case 4:
        return {403, "text/html", "", "<html>"};
    case 5:
        return {429, "text/plain", "400", "slow"};
    case 6:
        return {503, "text/plain", "30", "down"};
    case 7:
        return {200, "application/json", "", "{\"oops"};
    case 8:
        return {404, "application/json", "", "{}"};
    default:
        return {};
    }
}

/// What a watchful source would hold against the program.
struct Watch {
    std::map<std::pair<std::string, std::string>, std::int64_t> lastAsked; // path and symbol
    std::map<std::string, std::int64_t> restUntil;                         // asked for, by host
    std::map<std::pair<std::string, std::int64_t>, int> count;             // source and day
    std::set<std::string> busy;

    /// The clock was set back: what was noted by the old one says nothing any more.
    void Forget() {
        lastAsked.clear();
        restUntil.clear();
        count.clear();
    }

    void Sent(const std::string& address, std::int64_t now) {
        const std::string host = HostOf(address);
        const auto mark = address.find('?');
        const std::string path = address.substr(0, mark);
        if (now < restUntil[host] || !busy.insert(host).second ||
            ++count[{path.substr(0, path.find('-')), now / 86400}] > kCap)
            std::abort();
        std::string symbols = address.substr(mark + 1) + ",";
        for (auto comma = symbols.find(','); comma != symbols.npos; comma = symbols.find(',')) {
            const auto [asked, isFirst] =
                lastAsked.emplace(std::pair(path, symbols.substr(0, comma)), now);
            if (!isFirst && now - asked->second < kInterval)
                std::abort();
            asked->second = now;
            symbols.erase(0, comma + 1);
        }
    }
};

/// A schedule between people who want prices and sources that answer as they like.
class Play {
public:
    void Take(std::uint8_t step, std::uint8_t value) {
        const std::uint8_t choice = step / 8;
        switch (step % 8) {
        case 0:
            m_schedule.Want(kSpans[choice / 3 % 4], {kSymbols[value % 5], kSymbols[value / 5 % 5]},
                            m_now, static_cast<Urgency>(choice % 3));
            break;
        case 1:
            m_now += value;
            break;
        case 2:
        case 3:
            Answer(choice, value);
            break;
        case 4:
            m_now += value * 60;
            break;
        case 5:
            m_now -= value * 120;
            m_watch.Forget();
            break;
        case 6: // an answer that is no more waited for
            m_schedule.Answer(m_lost.empty() ? -1 - value : m_lost[choice % m_lost.size()],
                              {200, "application/json", "", "{}"}, m_now);
            break;
        default:
            m_schedule.Restore(ReadQuotes(WriteQuotes(m_schedule.KeptQuotes()), m_now));
        }
        Send();
        CheckKnown();
    }

    /// Nobody answers any more.
    void End() {
        for (int i = 0; i < 400 && m_schedule.IsBusy(); ++i) {
            m_now += 20;
            Send();
        }
        if (m_schedule.IsBusy())
            std::abort();
        for (const PriceSpan span : kSpans)
            for (const char* symbol : kSymbols)
                if (m_schedule.IsPending(span, symbol))
                    std::abort();
    }

private:
    static const SourceTable& Sources() {
        static const SourceTable sources = ReadSourceTable(kSources, "sources.toml");
        return sources;
    }

    void Send() {
        // What was not answered in time, or by a clock that was set back, is given up.
        for (auto flight = m_flights.begin(); flight != m_flights.end();) {
            const auto& [id, sent] = *flight;
            if (m_now >= sent.second && m_now - sent.second < kPatience) {
                ++flight;
                continue;
            }
            m_watch.busy.erase(HostOf(sent.first));
            m_lost.push_back(id);
            flight = m_flights.erase(flight);
        }
        while (const auto request = m_schedule.Next(m_now)) {
            m_watch.Sent(request->address, m_now);
            m_flights.emplace(request->id, std::pair(request->address, m_now));
        }
    }

    void Answer(std::uint8_t which, std::uint8_t kind) {
        if (m_flights.empty())
            return;
        const auto flight =
            std::next(m_flights.begin(), static_cast<std::ptrdiff_t>(which % m_flights.size()));
        const std::string address = flight->second.first;
        const int id = flight->first;
        m_flights.erase(flight);
        m_watch.busy.erase(HostOf(address));
        const SourceResponse response = ::Answer(address, kind, m_now);
        m_schedule.Answer(id, response, m_now);
        if (!response.retryAfter.empty())
            m_watch.restUntil[HostOf(address)] = m_now + std::stol(response.retryAfter);
    }

    /// What is known can be shown, and what is reported is within its bounds.
    void CheckKnown() {
        for (const char* symbol : kSymbols) {
            const auto quote = m_schedule.FindQuote(symbol);
            if (quote.value && !(quote.value->last > 0))
                std::abort();
            const auto series = m_schedule.FindSeries(PriceSpan::Year, symbol);
            if (series.value && (series.value->closes.empty() ||
                                 series.value->closes.size() != series.value->times.size()))
                std::abort();
        }
        for (const SourceReport& report : m_schedule.Reports(m_now))
            if (report.requestsToday > kCap || (report.pausedUntil && report.pausedUntil <= m_now))
                std::abort();
    }

    SourceSchedule m_schedule{Sources()};
    Watch m_watch;
    std::map<int, std::pair<std::string, std::int64_t>> m_flights; // address and when it was sent
    std::vector<int> m_lost;
    std::int64_t m_now = kStart;
};

} // namespace

// Every two bytes are a step: somebody wants prices, time passes, the clock is set back, an answer
// comes, late, out of its turn, or not at all. However they follow each other, no source is asked
// more than it may be, no rest that it asked for is ignored, and in the end nothing is left
// pending.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostSteps = 150;
    Play play;
    for (std::size_t i = 0; i + 1 < size && i < 2 * kMostSteps; i += 2)
        play.Take(data[i], data[i + 1]);
    play.End();
    return 0;
}
