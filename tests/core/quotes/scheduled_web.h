#pragma once

#include "core/quotes/source_files.h"
#include "core/quotes/source_schedule.h"
#include "core/text/bytes.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace tallowmere {

/// Two fast sources of one shape on two hosts, and an end-of-day one.
inline constexpr const char* kSources = R"(
user_agent = "test"
[sources.a]
name = "First"
format = "cnbc"
request = "https://first.example/q?s={symbols}"
separator = "|"
batch = 3
daily_cap = 20
[sources.b]
name = "Second"
format = "cnbc"
request = "https://second.example/q?s={symbols}"
separator = "|"
batch = 2
[sources.c]
name = "Floor"
format = "fred-csv"
request = "https://floor.example/csv?id={symbols}"
[sources.d]
name = "Chart"
format = "yahoo-chart"
request = "https://second.example/chart/{symbols}?r={range}"
gives = ["year"]
)";

/// A source in its own words: a row for each symbol of the address.
inline SourceResponse Good(const std::string& address, double price = 10,
                           std::string_view time = "2026-11-20T16:00:00-0500") {
    std::string rows;
    const auto list = address.substr(address.find("s=") + 2);
    for (const auto symbol : Split(list, '|'))
        rows += (rows.empty() ? "" : ",") + std::string("{\"symbol\":\"") + std::string(symbol) +
                "\",\"code\":0,\"last\":\"" + std::to_string(price) + "\",\"last_time\":\"" +
                std::string(time) + "\"}";
    return {200, "application/json", "",
            "{\"FormattedQuoteResult\":{\"FormattedQuote\":[" + rows + "]}}"};
}

/// Drives a schedule with a provider for each host and notes what was asked.
class ScheduledWeb {
public:
    using Provider = std::function<SourceResponse(const std::string& address)>;

    explicit ScheduledWeb(const char* sources = kSources)
        : m_schedule(ReadSourceTable(sources, "sources.toml")) {
        m_hosts["first.example"] = [](const auto& address) { return Good(address); };
        m_hosts["second.example"] = [](const auto& address) { return Good(address, 20); };
        m_hosts["floor.example"] = [](const auto&) { return SourceResponse(); };
    }

    void Set(const std::string& host, Provider provider) { m_hosts[host] = std::move(provider); }
    void Set(const std::string& host, const SourceResponse& response) {
        m_hosts[host] = [response](const auto&) { return response; };
    }

    void Get(const std::vector<std::string>& symbols, PriceSpan span = PriceSpan::Quote,
             Urgency urgency = Urgency::Routine) {
        m_schedule.Want(span, symbols, now, urgency);
        while (const auto request = m_schedule.Next(now)) {
            asked.push_back(request->address.substr(8));
            const std::string host = asked.back().substr(0, asked.back().find('/'));
            m_schedule.Answer(request->id, m_hosts[host](request->address), now);
        }
        EXPECT_FALSE(m_schedule.IsBusy());
    }

    /// The same for somebody who asks.
    void Ask(const std::vector<std::string>& symbols) {
        Get(symbols, PriceSpan::Quote, Urgency::Asked);
    }

    double Price(std::string_view symbol) const {
        const auto kept = m_schedule.FindQuote(symbol);
        return kept.value ? kept.value->last : 0;
    }

    bool IsStale(std::string_view symbol) const { return m_schedule.FindQuote(symbol).stale; }

    std::vector<std::string> TakeAsked() { return std::exchange(asked, {}); }
    SourceSchedule& Schedule() { return m_schedule; }

    std::int64_t now = kFridayClose;
    std::vector<std::string> asked;

private:
    SourceSchedule m_schedule;
    std::map<std::string, Provider> m_hosts;
};

} // namespace tallowmere
