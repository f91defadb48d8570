#include "core/links/server_lists.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

void ReadBooks(benchmark::State& state) {
    std::string page;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        page += std::to_string(1000000000 + i) + "-A Book on Buy-and-Hold<br>\r\n";
    for (auto _ : state) {
        const auto books = tallowmere::ReadBookList(page);
        if (books.size() != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("books are missing");
        benchmark::DoNotOptimize(books.data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadBooks)
    ->RangeMultiplier(10)
    ->Range(100, 1'000'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

void ReadSites(benchmark::State& state) {
    std::string page;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        page += "<a href=\"http://site.test/" + std::to_string(i) + "\">A New Site</a><br>\r\n";
    for (auto _ : state) {
        const auto entries = tallowmere::ReadNewSites(page);
        if (entries.size() != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("sites are missing");
        benchmark::DoNotOptimize(entries.data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadSites)
    ->RangeMultiplier(10)
    ->Range(100, 1'000'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

} // namespace
