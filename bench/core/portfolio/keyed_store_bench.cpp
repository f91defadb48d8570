#include "core/portfolio/keyed_store.h"
#include "core/portfolio/ticker_list.h"
#include "core/text/files.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kStoreSize = 50'000'000;
constexpr std::string_view kFile = "\\TickNotes.txt";
constexpr std::string_view kLastKey = "ZZZZ";

/// A store of 50 MB whose last record is the one that is asked for.
class LargeStore {
public:
    LargeStore() : m_folder(fs::temp_directory_path() / "tallowmere-keyed-store-bench") {
        std::string content;
        for (int i = 0; content.size() < kStoreSize; ++i)
            content += tallowmere::NoteRecord("T" + std::to_string(i),
                                              "bought on a dip, watch the earnings date");
        content += tallowmere::NoteRecord(kLastKey, "the last one");
        tallowmere::WriteWholeFile(tallowmere::PathInFolder(m_folder, kFile), content);
    }
    ~LargeStore() { fs::remove_all(m_folder); }
    LargeStore(const LargeStore&) = delete;
    LargeStore& operator=(const LargeStore&) = delete;

    const fs::path& Folder() const { return m_folder; }
    bool Get() const {
        std::string note;
        tallowmere::TickerNotes(m_folder, note, "GET", kLastKey, "", kFile);
        return note == "the last one";
    }
    bool Grep() const {
        const std::string command = "LC_ALL=C grep -F '||" + std::string(kLastKey) + "||' '" +
                                    tallowmere::PathInFolder(m_folder, kFile).string() +
                                    "' >/dev/null";
        return std::system(command.c_str()) == 0;
    }

private:
    fs::path m_folder;
};

const LargeStore& Store() {
    static const LargeStore store;
    return store;
}

/// Both in turn, so that whatever else the machine does meets them alike.
void GetBesideGrep(benchmark::State& state) {
    const LargeStore& store = Store();
    std::chrono::duration<double> ours{}, grep{};
    for (auto _ : state) {
        const auto start = Clock::now();
        const bool got = store.Get();
        const auto between = Clock::now();
        const bool grepped = store.Grep();
        const auto end = Clock::now();
        if (!got || !grepped)
            state.SkipWithError("the record was not found");
        ours += between - start;
        grep += end - between;
    }
    const auto count = static_cast<double>(state.iterations());
    state.counters["get_ms"] = ours.count() * 1000 / count;
    state.counters["grep_ms"] = grep.count() * 1000 / count;
    state.counters["get/grep"] = ours.count() / grep.count();
}
BENCHMARK(GetBesideGrep)->Unit(benchmark::kMillisecond)->UseRealTime();

std::string TenThousandTickers() {
    std::string stored;
    for (int i = 0; i < 10'000; ++i)
        stored += "T" + std::to_string(i) + "|";
    return stored;
}

void SplitTenThousandTickers(benchmark::State& state) {
    const std::string stored = TenThousandTickers();
    for (auto _ : state)
        benchmark::DoNotOptimize(tallowmere::SplitTickerList(stored));
}
BENCHMARK(SplitTenThousandTickers)->Unit(benchmark::kMillisecond);

/// Which notes go when a list of 10,000 tickers is cleared beside nine lists of as many.
void SurvivalOfTenThousandNotes(benchmark::State& state) {
    std::string others;
    for (int i = 0; i < 90'000; ++i)
        others += "X" + std::to_string(i) + "|";
    const auto tickers = tallowmere::SplitTickerList(TenThousandTickers());
    for (auto _ : state)
        benchmark::DoNotOptimize(tallowmere::TickersFoundNowhere(tickers, others));
}
BENCHMARK(SurvivalOfTenThousandNotes)->Unit(benchmark::kMillisecond);

} // namespace
