#include "core/portfolio/ticker_scan.h"

#include "core/text/files.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

using tallowmere::TickerScan;

const std::string kPrefix = "/q?s=";
constexpr int kDifferent = 20'000;

/// A symbol of four letters for each number.
std::string Symbol(int number) {
    std::string symbol(4, 'A');
    for (char& letter : symbol) {
        letter = static_cast<char>('A' + number % 26);
        number /= 26;
    }
    return symbol;
}

/// A page of so many links, a hundred bytes each, to 20,000 different tickers.
std::string Page(std::int64_t links) {
    std::string page;
    for (std::int64_t i = 0; i < links; ++i) {
        const std::string symbol = Symbol(static_cast<int>(i % kDifferent));
        page += "<tr><td><a href=\"http://quotes.test" + kPrefix + symbol + "\">" + symbol +
                "</a></td><td>";
        page.resize(static_cast<std::size_t>(i + 1) * 100 - 11, '.');
        page += "</td></tr>\n";
    }
    return page;
}

std::vector<std::string> Scan(std::string page, const std::string& prefix) {
    TickerScan scan(std::move(page), {prefix, "\""});
    while (scan.Step()) {
    }
    return scan.Symbols();
}

void ScanPage(benchmark::State& state) {
    const std::string page = Page(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(Scan(page, kPrefix));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * page.size()));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ScanPage)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(500'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

/// A prefix of 10,000 bytes of which only the last few occur.
void ScanPageWithALongPrefix(benchmark::State& state) {
    const std::string page = Page(500'000);
    const std::string prefix = std::string(10'000, 'x') + kPrefix;
    for (auto _ : state)
        benchmark::DoNotOptimize(Scan(page, prefix));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * page.size()));
}
BENCHMARK(ScanPageWithALongPrefix)->Unit(benchmark::kMillisecond);

/// The seconds that a scan takes in the Perl program, which has to find `expected`; below zero when
/// it failed.
double SecondsInPerl(const std::string& page, const std::string& expected, int rounds) {
    const auto folder = std::filesystem::temp_directory_path() / "tallowmere_ticker_scan";
    const auto input = folder / "input";
    const auto output = folder / "output";
    tallowmere::WriteWholeFile(input, page);
    const std::string command = "perl \"" TALLOWMERE_SOURCE_DIR
                                "/bench/core/portfolio/ticker_scan.pl\" \"" +
                                input.string() + "\" \"" + output.string() + "\" '" + kPrefix +
                                "' '\"' " + std::to_string(rounds);
    std::FILE* pipe = popen(command.c_str(), "r");
    double seconds = -1;
    const bool read = pipe && std::fscanf(pipe, "%lf", &seconds) == 1;
    const bool ended = pipe && pclose(pipe) == 0;
    const bool same = tallowmere::ReadWholeFile(output) == expected;
    std::filesystem::remove_all(folder);
    return read && ended && same ? seconds : -1;
}

/// A page of 10 MB with 100,000 matches here and in a Perl program of the same rules, in turn.
void ScanPageBesidePerl(benchmark::State& state) {
    constexpr int kRounds = 5;
    using Clock = std::chrono::steady_clock;
    const std::string page = Page(100'000);
    std::string expected;
    for (const std::string& symbol : Scan(page, kPrefix))
        expected += symbol + "\n";
    double ours = 0;
    double perl = 0;
    for (auto _ : state) {
        const double inPerl = SecondsInPerl(page, expected, kRounds);
        if (inPerl < 0) {
            state.SkipWithError("the Perl program failed or found other tickers");
            return;
        }
        double inCore = 0;
        for (int i = 0; i < kRounds; ++i) {
            // The window hands its page over; the Perl program reads it in place.
            std::string copy = page;
            const auto started = Clock::now();
            benchmark::DoNotOptimize(Scan(std::move(copy), kPrefix));
            inCore += std::chrono::duration<double>(Clock::now() - started).count() / kRounds;
        }
        state.SetIterationTime(inCore);
        ours += inCore;
        perl += inPerl;
    }
    state.counters["tickers"] = static_cast<double>(expected.size()) / 5;
    state.counters["perl_ms"] = perl / static_cast<double>(state.iterations()) * 1e3;
    state.counters["times_as_fast_as_perl"] = perl / ours;
}
BENCHMARK(ScanPageBesidePerl)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
