#include "core/market/index_strip.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

constexpr std::size_t kPageSize = 10'000'000;

/// A page of 10 MB whose rows stand at its end, so that each is searched for over the whole.
const std::string& LargePage() {
    static const std::string page = [] {
        std::string text;
        while (text.size() < kPageSize)
            text += "<tr><td align=left><a href=\"/q?s=XYZ&d=t\">XYZ</a></td><td>1.25</td></tr>\n";
        for (const auto& row : tallowmere::IndexTable()) {
            text += row.anchor;
            text += "</a></td><td nowrap><b>1,469.25</b></td><td nowrap>+4.47</td></tr>\n";
        }
        return text + "Quotes delayed";
    }();
    return page;
}

void ReadIndexPage(benchmark::State& state) {
    const std::string& page = LargePage();
    for (auto _ : state) {
        const auto panels = tallowmere::ReadIndexPage(page);
        if (panels.size() != tallowmere::kIndexCount)
            state.SkipWithError("rows are missing");
        benchmark::DoNotOptimize(panels.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * page.size()));
}
BENCHMARK(ReadIndexPage)->Unit(benchmark::kMillisecond);

/// The reference: one pass over the same page for a byte that it does not hold.
void PassOverThePage(benchmark::State& state) {
    const std::string& page = LargePage();
    for (auto _ : state) {
        // The compiler must not know that it is the same page every time.
        const char* data = page.data();
        benchmark::DoNotOptimize(data);
        benchmark::DoNotOptimize(std::memchr(data, '\0', page.size()));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * page.size()));
}
BENCHMARK(PassOverThePage)->Unit(benchmark::kMillisecond);

} // namespace
