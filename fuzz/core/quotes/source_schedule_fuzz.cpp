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

// Three sources on two hosts, the third with an interval of its own.
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
)";

constexpr const char* kSymbols[] = {"A", "B", "C", "^DJI", "VFINX"};

std::string HostOf(const std::string& address) {
    return address.substr(0, address.find('/', 8));
}

SourceResponse Answer(const std::string& address, std::uint8_t kind, std::int64_t now) {
    const std::string symbols = address.substr(address.find('?') + 1);
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
    std::map<std::pair<std::string, std::int64_t>, int> count;             // path and day
    std::set<std::string> busy;

    void Sent(const std::string& address, std::int64_t now) {
        const std::string host = HostOf(address);
        const auto mark = address.find('?');
        const std::string path = address.substr(0, mark);
        if (now < restUntil[host] || !busy.insert(host).second ||
            ++count[{path, now / 86400}] > kCap)
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

} // namespace

// Every two bytes are a step: somebody wants a symbol, time passes, an answer comes or does not.
// However they follow each other, no source is asked more than it may be, and in the end nothing is
// left pending.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const SourceTable sources = ReadSourceTable(kSources, "sources.toml");
    SourceSchedule schedule(sources);
    Watch watch;
    std::map<int, std::pair<std::string, std::int64_t>> flights; // address and when it was sent
    std::int64_t now = kStart;
    const auto send = [&] {
        // What was not answered in time is given up.
        std::erase_if(flights, [&](const auto& flight) {
            const bool isLost = now - flight.second.second >= kPatience;
            if (isLost)
                watch.busy.erase(HostOf(flight.second.first));
            return isLost;
        });
        while (const auto request = schedule.Next(now)) {
            watch.Sent(request->address, now);
            flights.emplace(request->id, std::pair(request->address, now));
        }
    };
    const auto answer = [&](std::uint8_t kind) {
        const auto flight = *flights.begin();
        const std::string& address = flight.second.first;
        flights.erase(flights.begin());
        watch.busy.erase(HostOf(address));
        const SourceResponse response = Answer(address, kind, now);
        schedule.Answer(flight.first, response, now);
        if (!response.retryAfter.empty())
            watch.restUntil[HostOf(address)] = now + std::stol(response.retryAfter);
    };
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        const std::uint8_t step = data[i];
        const std::uint8_t value = data[i + 1];
        if (step % 4 == 0)
            schedule.Want(PriceSpan::Quote, {kSymbols[value % 5], kSymbols[value / 5 % 5]}, now,
                          static_cast<Urgency>(step / 4 % 3));
        else if (step % 4 == 1)
            now += value;
        else if (step % 4 == 2 && !flights.empty())
            answer(value);
        else if (step % 4 == 3)
            now += value * 60;
        send();
    }
    // Nobody answers any more.
    for (int i = 0; i < 200 && schedule.IsBusy(); ++i) {
        now += 20;
        send();
    }
    if (schedule.IsBusy())
        std::abort();
    for (const char* symbol : kSymbols)
        if (schedule.IsPending(PriceSpan::Quote, symbol))
            std::abort();
    return 0;
}
