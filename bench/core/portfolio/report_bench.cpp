#include "core/portfolio/report.h"
#include "core/sites/site_table.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

using namespace tallowmere;

constexpr int kTickersEach = 1'000;

struct Market {
    std::vector<StoredPortfolio> portfolios;
    std::string notes;
};

/// Ten portfolios of 1,000 tickers; every ticker has a note, or none has and the 10,000 notes are
/// those of others.
Market MakeMarket(bool noted) {
    Market market;
    for (int n = 1; n <= kPortfolioCount; ++n) {
        std::string list;
        for (int i = 0; i < kTickersEach; ++i) {
            const std::string ticker = "T" + std::to_string(n * kTickersEach + i);
            list += ticker + "|";
            market.notes += NoteRecord(noted ? ticker : ticker + "X",
                                       "watch the earnings date & the \"guidance\"");
        }
        market.portfolios.push_back({n, "Portfolio #" + std::to_string(n), list});
    }
    return market;
}

/// From the content of the notes file to the page.
void WriteReport(benchmark::State& state) {
    const Market market = MakeMarket(state.range(0) != 0);
    const SiteTable sites =
        SiteTable::Parse("[hosts]\nquicken_click = \"click.test\"\n", "sites.toml");
    for (auto _ : state) {
        const NoteIndex notes(market.notes);
        benchmark::DoNotOptimize(ReportPage(market.portfolios, notes, {2026, 11, 21}, sites));
    }
}
BENCHMARK(WriteReport)->ArgName("noted")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void PrintReport(benchmark::State& state) {
    const Market market = MakeMarket(state.range(0) != 0);
    for (auto _ : state) {
        const NoteIndex notes(market.notes);
        benchmark::DoNotOptimize(PrintedReport(market.portfolios, notes, {2026, 11, 21}));
    }
}
BENCHMARK(PrintReport)->ArgName("noted")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
