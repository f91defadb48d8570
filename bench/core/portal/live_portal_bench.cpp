#include "core/portal/live_portal.h"
#include "core/sites/site_table.h"
#include "core/text/bytes.h"

#include <benchmark/benchmark.h>

namespace tallowmere {
namespace {

constexpr std::int64_t kNow = 1795208460;
constexpr std::string_view kRequestStart = "https://source.example/";

std::string PortfolioPath() {
    std::string path = "/quotes?d=1b&symbols=";
    for (int i = 0; i < 1000; ++i)
        path += "t" + std::to_string(i) + "+";
    return path;
}

SourceResponse Answer(const std::string& address) {
    std::string rows;
    for (const auto symbol : Split(std::string_view(address).substr(kRequestStart.size()), '|'))
        rows += (rows.empty() ? "{\"symbol\":\"" : ",{\"symbol\":\"") + std::string(symbol) +
                "\",\"name\":\"Some Company\",\"last\":\"1,234.50\",\"change\":\"+1.25\","
                "\"volume\":\"12,345,678\",\"last_time\":\"2026-11-20T16:00:00.000-0500\"}";
    return {200, "application/json", "",
            "{\"FormattedQuoteResult\":{\"FormattedQuote\":[" + rows + "]}}"};
}

/// All that the program does for the page of a portfolio of 1,000 tickers, from the address to the
/// page, with a source that answers at once.
void PortfolioOfAThousand(benchmark::State& state) {
    const SiteTable sites = SiteTable::Parse("[hosts]\ndefault = \"d\"\n", "sites.toml");
    const LivePortal portal(sites, {});
    const SourceTable sources =
        ReadSourceTable("[sources.a]\nformat = \"cnbc\"\nbatch = 40\nseparator = \"|\"\n"
                        "request = \"https://source.example/{symbols}\"\n",
                        "sources.toml");
    const std::string path = PortfolioPath();
    int requests = 0;
    for (auto _ : state) {
        SourceSchedule schedule(sources);
        for (const WantedPrices& wanted : portal.Needs("d", path))
            schedule.Want(wanted.span, wanted.symbols, kNow);
        requests = 0;
        while (const auto request = schedule.Next(kNow)) {
            ++requests;
            state.PauseTiming();
            const SourceResponse response = Answer(request->address);
            state.ResumeTiming();
            schedule.Answer(request->id, response, kNow);
        }
        benchmark::DoNotOptimize(portal.Answer("d", path, schedule, kNow));
    }
    if (requests != 25)
        state.SkipWithError("not one request a batch");
}
BENCHMARK(PortfolioOfAThousand)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tallowmere
