#include "core/custom/multi_link.h"

#include "core/links/before_navigate.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <malloc.h>
#include <string>

namespace {

using namespace tallowmere;

constexpr std::size_t kPageSize = 1'000'000;

/// A recorded page of 1 MB, a placeholder in each of its frames.
std::string LargePage() {
    std::string page(kMultiLinkHead);
    while (page.size() < kPageSize)
        page += MultiLinkFrame(
            "http://research.test/cgi-bin/search.cgi?SEARCHFIELD=Ticker+Symbol&REPORT=Ratio&QUERY="
            "UCASETICK&period=3MONTH&charttype=HIST");
    return page;
}

double SecondsOfProcessor() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// The expansion and a copy of the same page, in turn: in memory that is fresh each time, as it is
/// for a click now and then, or in memory that the round before has left.
void ExpandBesideCopy(benchmark::State& state) {
    constexpr int kRounds = 50;
    const bool fresh = state.range(0) != 0;
    mallopt(M_MMAP_THRESHOLD, fresh ? 128 * 1024 : 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, fresh ? 128 * 1024 : 64 * 1024 * 1024);
    const std::string page = LargePage();
    const TickerForms forms = FormsOf("MSFT");
    double expanding = 0;
    double copying = 0;
    for (auto _ : state) {
        const double started = SecondsOfProcessor();
        for (int i = 0; i < kRounds; ++i)
            benchmark::DoNotOptimize(ExpandMultiLink(page, forms));
        const double between = SecondsOfProcessor();
        for (int i = 0; i < kRounds; ++i) {
            std::string copy = page;
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        }
        copying += SecondsOfProcessor() - between;
        expanding += between - started;
        state.SetIterationTime((between - started) / kRounds);
    }
    state.counters["speed_of_a_copy"] = copying / expanding;
}
BENCHMARK(ExpandBesideCopy)
    ->ArgName("fresh")
    ->Arg(1)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMicrosecond);

} // namespace
