#include "core/finder/finder.h"

#include <benchmark/benchmark.h>

#include <array>

namespace tallowmere {
namespace {

constexpr int kTickers = 10'000;
constexpr int kNotes = 5'000;

std::string Symbol(int number) {
    std::string symbol;
    for (int n = 0; n < 4; ++n, number /= 26)
        symbol += static_cast<char>('A' + number % 26);
    return symbol;
}

/// As much as somebody with ten long lists and a note on every other ticker has.
std::vector<FinderItem> Everything() {
    constexpr std::array<std::string_view, 8> words{"growth",  "dividend", "margin",  "forecast",
                                                    "January", "lawsuit",  "cheaper", "competitor"};
    std::vector<FinderItem> items;
    for (int n = 0; n < 700; ++n)
        items.push_back({n < 200 ? FinderKind::Link : FinderKind::MenuItem,
                         "Site " + std::to_string(n) + " - Research of " + Symbol(n * 7),
                         "www.site" + std::to_string(n) + ".example", "link " + std::to_string(n),
                         n % 2 == 0 ? FinderTickers::Several : FinderTickers::None,
                         static_cast<double>(n % 5)});
    items.push_back({FinderKind::Link, "Zacks - ZACKS Research", "zacks.example", "link",
                     FinderTickers::Several, 0});
    for (int n = 0; n < kTickers; ++n)
        items.push_back({FinderKind::Ticker,
                         Symbol(n),
                         "Portfolio #" + std::to_string(n % 10 + 1),
                         "ticker " + Symbol(n),
                         {},
                         0});
    for (int n = 0; n < kNotes; ++n) {
        std::string note;
        for (std::size_t word = 0; word < 30; ++word)
            note += std::string(words[(static_cast<std::size_t>(n) * 31 + word * word) % 8]) + ' ';
        items.push_back({FinderKind::Note,
                         Symbol(2 * n) + ": " + note.substr(0, 60),
                         note,
                         "note " + Symbol(2 * n),
                         {},
                         0});
    }
    return items;
}

constexpr std::array<std::string_view, 8> kLines{
    "",       "z",          "zacks",         "abcb zacks",
    "margin", "january no", "cheap divi xq", "e growth competitor lawsuit forecast"};

void Keystroke(benchmark::State& state) {
    const FinderCatalogue catalogue(Everything());
    const std::string_view line = kLines[static_cast<std::size_t>(state.range(0))];
    for (auto _ : state)
        benchmark::DoNotOptimize(catalogue.Find(line));
    state.SetLabel("\"" + std::string(line) + "\"");
}
BENCHMARK(Keystroke)
    ->DenseRange(0, static_cast<int>(kLines.size()) - 1)
    ->Unit(benchmark::kMillisecond);

/// What a keystroke stands beside: one walk over the same texts for one word.
void OnePlainSearch(benchmark::State& state) {
    const auto items = Everything();
    for (auto _ : state) {
        std::size_t found = 0;
        for (const FinderItem& item : items)
            for (const std::string* text : {&item.text, &item.words})
                found += text->find("lawsuits") != std::string::npos ? 1 : 0;
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(OnePlainSearch)->Unit(benchmark::kMillisecond);

/// What is done once, when the box opens.
void MakeCatalogue(benchmark::State& state) {
    const auto items = Everything();
    for (auto _ : state)
        benchmark::DoNotOptimize(FinderCatalogue(items));
}
BENCHMARK(MakeCatalogue)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tallowmere
