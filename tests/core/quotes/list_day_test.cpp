#include "core/quotes/list_pace.h"
#include "core/quotes/quote_age.h"
#include "core/quotes/source_files.h"
#include "core/quotes/time_text.h"
#include "core/text/bytes.h"
#include "shipped_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iomanip>
#include <map>
#include <numeric>
#include <sstream>

// A whole day of the ticker list, and of alerts beside it, over the shipped sources: how many
// requests they cause. The counts stand in docs/data-sources.md.
namespace tallowmere {
namespace {

constexpr std::int64_t kHour = 3600;
/// 4 AM in New York on the day of kFridayClose, the hour at which the simulated day begins.
constexpr std::int64_t kMorning = kFridayClose - 12 * kHour;
constexpr int kFirstHour = 4;
constexpr int kTickers = 40;
constexpr int kAlerts = 10; // on other tickers

constexpr std::int64_t kOpening = kFridayClose - 6 * kHour - 1800;
constexpr std::int64_t kThursdayClose = kFridayClose - 24 * kHour;

/// When the last trade was.
std::int64_t LastTrade(std::int64_t now) {
    return now < kOpening ? kThursdayClose : std::min(now, kFridayClose);
}

/// Which hosts answer.
using IsUp = std::function<bool(std::string_view host)>;

std::string Cnbc(const std::vector<std::string>& symbols, std::int64_t now) {
    const std::int64_t time = LastTrade(now);
    const NewYorkClock clock = AtNewYork(time);
    std::ostringstream rows;
    rows << std::setfill('0');
    for (const std::string& symbol : symbols)
        rows << (rows.tellp() > 0 ? "," : "") << R"({"symbol":")" << symbol
             << R"(","code":0,"last":"10","change":"1","last_time":"2026-11-)" << std::setw(2)
             << clock.day << 'T' << std::setw(2) << clock.hour << ':' << std::setw(2)
             << clock.minute << ':' << std::setw(2) << time % 60 << R"(-0500"})";
    return R"({"FormattedQuoteResult":{"FormattedQuote":[)" + rows.str() + "]}}";
}

std::string Spark(const std::vector<std::string>& symbols, std::int64_t now, bool isDay) {
    const std::int64_t time = LastTrade(now);
    std::string times = std::to_string(time);
    std::string closes = "10";
    if (isDay) {
        times = std::to_string(time - 300) + "," + times;
        closes += ",10";
    }
    std::string rows;
    for (const std::string& symbol : symbols)
        rows += (rows.empty() ? "\"" : ",\"") + symbol + R"(":{"symbol":")" + symbol +
                R"(","timestamp":[)" + times + R"(],"close":[)" + closes +
                R"(],"chartPreviousClose":9,"previousClose":9})";
    return "{" + rows + "}";
}

/// What each hour from kFirstHour on asked for, and whether two requests ever came in a minute.
struct Day {
    std::vector<int> perHour = std::vector<int>(24);
    int most = 0; ///< in any minute
    std::size_t priced = 0;
    std::size_t watched = 0; ///< tickers of alerts whose close is known at the end
    std::int64_t latest = 0; ///< longest time between two prices of such a ticker, market open
};

/// What somebody wants to know during that day.
struct Wanted {
    bool list = true; ///< whether it is in sight
    bool showsDay = false;
    int alerts = 0;
};

Day Simulate(const IsUp& isUp, const Wanted& wanted) {
    SourceSchedule schedule(ReadSourceTable(ShippedFile("sources.toml"), "sources.toml"));
    ListPace pace;
    ListInView list;
    list.showsDay = wanted.showsDay;
    for (int n = 0; n < kTickers && wanted.list; ++n)
        list.seen.push_back("T" + std::to_string(n));
    for (int n = 0; n < wanted.alerts; ++n)
        list.watched.push_back("A" + std::to_string(n));
    Day day;
    std::map<std::string, std::int64_t> learned;
    std::vector<std::int64_t> sent;
    for (std::int64_t now = kMorning; now < kMorning + 24 * kHour; ++now) {
        const bool isMinute = (now - kMorning) % 60 == 0;
        if (!isMinute && !schedule.IsBusy())
            continue;
        if (isMinute) {
            const ListWish wish = pace.Next(schedule, list, now);
            schedule.Want(PriceSpan::Quote, wish.quotes, now, Urgency::Listed);
            schedule.Want(PriceSpan::Day, wish.days, now, Urgency::Listed);
        }
        while (const auto request = schedule.Next(now)) {
            ++day.perHour.at(static_cast<std::size_t>((now - kMorning) / kHour));
            sent.push_back(now);
            const std::string host = request->address.substr(8, request->address.find('/', 8) - 8);
            SourceResponse response;
            if (isUp(host)) {
                const bool isDay = Contains(request->address, "interval=5m");
                response = {200, "application/json", "",
                            host == "quote.cnbc.com" ? Cnbc(request->symbols, now)
                                                     : Spark(request->symbols, now, isDay)};
            }
            schedule.Answer(request->id, response, now);
            for (const std::string& symbol : request->symbols) {
                if (symbol.front() == 'A' && learned.contains(symbol) && IsOpen(now) &&
                    learned[symbol] >= kOpening)
                    day.latest = std::max(day.latest, now - learned[symbol]);
                learned[symbol] = now;
            }
        }
    }
    for (std::size_t first = 0; first < sent.size(); ++first) {
        std::size_t last = first;
        while (last < sent.size() && sent[last] - sent[first] < 60)
            ++last;
        day.most = std::max(day.most, static_cast<int>(last - first));
    }
    const auto knowsClose = [&schedule](const std::string& symbol) {
        const auto kept = schedule.FindQuote(symbol);
        return kept.value && kept.value->time == kFridayClose;
    };
    day.priced = static_cast<std::size_t>(std::ranges::count_if(list.seen, knowsClose));
    day.watched = static_cast<std::size_t>(std::ranges::count_if(list.watched, knowsClose));
    return day;
}

bool All(std::string_view) {
    return true;
}
bool FirstDown(std::string_view host) {
    return host != "quote.cnbc.com";
}
bool None(std::string_view) {
    return false;
}

/// The table of docs/data-sources.md.
std::string Table() {
    const std::pair<IsUp, Wanted> columns[] = {
        {All, {true, true}},  {All, {true, false}},         {FirstDown, {true, true}},
        {None, {true, true}}, {All, {true, true, kAlerts}}, {All, {false, false, kAlerts}}};
    std::vector<Day> days;
    for (const auto& [isUp, wanted] : columns)
        days.push_back(Simulate(isUp, wanted));
    std::string table = "| Hour in New York | all sources up | without the line of the day | the "
                        "first down | all down | list and ten alerts | ten alerts alone |\n"
                        "|---|---|---|---|---|---|---|\n";
    for (int hour = 0; hour < 24; ++hour) {
        const int from = (kFirstHour + hour) % 24;
        table += "| " + std::to_string(from) + " to " + std::to_string((from + 1) % 24);
        for (const Day& day : days)
            table += " | " + std::to_string(day.perHour.at(static_cast<std::size_t>(hour)));
        table += " |\n";
    }
    return table;
}

TEST(ListDay, NoMinuteSeesTwoRequests) {
    for (const Wanted& wanted : {Wanted{true, true}, Wanted{true, false},
                                 Wanted{true, true, kAlerts}, Wanted{false, false, kAlerts}}) {
        EXPECT_EQ(Simulate(All, wanted).most, 1);
        EXPECT_EQ(Simulate(FirstDown, wanted).most, 1);
        EXPECT_EQ(Simulate(None, wanted).most, 1);
    }
}

TEST(ListDay, AlertsOnTickersOutOfSightGoWithTheListAndAreLookedAtEveryMinute) {
    for (const bool showsList : {true, false}) {
        const Day day = Simulate(All, {showsList, false, kAlerts});
        EXPECT_EQ(day.watched, static_cast<std::size_t>(kAlerts));
        EXPECT_LE(day.latest, 120) << showsList;
        for (std::size_t hour = 18 - kFirstHour; hour < day.perHour.size(); ++hour)
            EXPECT_EQ(day.perHour[hour], 0) << "hour " << hour + kFirstHour;
    }
}

TEST(ListDay, WithoutAListInSightAndWithoutAnAlertNothingIsAsked) {
    const Day day = Simulate(All, {false, true, 0});
    EXPECT_EQ(std::accumulate(day.perHour.begin(), day.perHour.end(), 0), 0);
}

TEST(ListDay, TheCloseIsKnownInTheEveningAndNothingIsAskedInTheNight) {
    for (const IsUp& isUp : {IsUp(All), IsUp(FirstDown)}) {
        const Day day = Simulate(isUp, {true, true});
        EXPECT_EQ(day.priced, static_cast<std::size_t>(kTickers));
        for (std::size_t hour = 18 - kFirstHour; hour < day.perHour.size(); ++hour)
            EXPECT_EQ(day.perHour[hour], 0) << "hour " << hour + kFirstHour;
    }
}

TEST(ListDay, TheCountsAreThoseOfTheDocument) {
    std::ifstream file(TALLOWMERE_SOURCE_DIR "/docs/data-sources.md");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::string table = Table();
    EXPECT_NE(text.find(table), std::string::npos) << table;
}

} // namespace
} // namespace tallowmere
