#include "core/portfolio/condensed_page.h"
#include "core/sites/site_table.h"

#include "core/text/files.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>

namespace {

using tallowmere::CondensedPage;
using tallowmere::SiteTable;

const SiteTable& Sites() {
    static const SiteTable sites = SiteTable::Parse(
        "[hosts]\nportal = \"portal.test\"\nquote_server = \"server.test\"\n", "sites.toml");
    return sites;
}

std::string Quote(const std::string& ticker) {
    return R"(<table border=1 width="100%" cellpadding=0 cellspacing=0><tr valign=bottom>)"
           R"(<td nowrap colspan=2><a href="/q?s=)" +
           ticker + "&d=t\">" + ticker + "</a> NYSE</td><td nowrap>Last Trade<br>\n" +
           "4:00PM &#183; <b>1,469.25</b></td><td nowrap>Change<br>\n"
           "<font color=ff0020>-4.47</font> (-0.30%)</td><td nowrap>Prev Cls<br>\n1,473.72</td>"
           "<td nowrap>Volume<br>\n12,345,678</td><td nowrap>Div Date<br>\nDec 10</td></tr>\n"
           "<tr valign=bottom><td nowrap>Day's Range<br>\n1,460.00 - 1,475.50</td>"
           "<td nowrap>Bid<br>\nN/A</td><td nowrap>Ask<br>\nN/A</td><td nowrap>Open<br>\n"
           "1,470.00</td><td nowrap>Avg Vol<br>\n9,876,543</td><td nowrap>Ex-Div<br>\nNov 8</td>"
           "</tr>\n<tr valign=bottom><td nowrap>52-week Range<br>\n801.50 - 1,502.00</td>"
           "<td nowrap>Earn/Shr<br>\n4.12</td><td nowrap>P/E<br>\n35.6</td><td nowrap>Mkt Cap<br>\n"
           "123.4B</td><td nowrap>Div/Shr<br>\n0.48</td><td nowrap>Yield<br>\n0.41</td></tr>\n"
           "<tr><td nowrap rowspan=3><img src=\"/t?s=" +
           ticker + R"(" border=0 width=192 height=96></td></tr><tr><td nowrap colspan=7>)" +
           "<small>Small: <a href=\"/q?s=" + ticker + "&d=0b\">1y</a>, <a href=\"/q?s=" + ticker +
           "&d=2b\">5d</a></small></td></tr><tr><td>" + ticker + " - More Info: <a href=\"/n/" +
           ticker + "\">News</a>, <a href=\"/mb/" + ticker + "\">Msgs</a>, <a href=\"/p/" + ticker +
           "\">Profile</a></td></tr></table><p>\n";
}

/// An answer of the portal for so many tickers.
std::string Answer(std::int64_t tickers) {
    std::string body = "<html><head><title>Quotes</title></head><body>\n";
    for (std::int64_t i = 0; i < tickers; ++i)
        body += Quote("T" + std::to_string(i));
    return body + "Quotes delayed 15 minutes</body></html>\n";
}

void CondensePage(benchmark::State& state) {
    const std::string body = Answer(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(CondensedPage(body, Sites()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * body.size()));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(CondensePage)
    ->Arg(100)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

/// The seconds of processor time that a page takes in the Perl program, whose page has to be
/// `expected`; below zero when it failed.
double SecondsInPerl(const std::string& body, const std::string& expected, int rounds) {
    const auto folder = std::filesystem::temp_directory_path() / "tallowmere_condensed_page";
    const auto input = folder / "input";
    const auto output = folder / "output";
    tallowmere::WriteWholeFile(input, body);
    const std::string command =
        "perl \"" TALLOWMERE_SOURCE_DIR "/bench/core/portfolio/condensed_page.pl\" \"" +
        input.string() + "\" \"" + output.string() + "\" " + std::to_string(rounds);
    std::FILE* pipe = popen(command.c_str(), "r");
    double seconds = -1;
    const bool read = pipe && std::fscanf(pipe, "%lf", &seconds) == 1;
    const bool ended = pipe && pclose(pipe) == 0;
    const bool same = tallowmere::ReadWholeFile(output) == expected;
    std::filesystem::remove_all(folder);
    return read && ended && same ? seconds : -1;
}

/// A page of 1,000 tickers here and in a Perl program of the same replacements, in turn.
void CondensePageBesidePerl(benchmark::State& state) {
    constexpr int kRounds = 20;
    const std::string body = Answer(1'000);
    const std::string expected = CondensedPage(body, Sites()).value_or("");
    double ours = 0;
    double perl = 0;
    for (auto _ : state) {
        const double inPerl = SecondsInPerl(body, expected, kRounds);
        if (inPerl < 0) {
            state.SkipWithError("the Perl program failed or made another page");
            return;
        }
        const std::clock_t started = std::clock();
        for (int i = 0; i < kRounds; ++i)
            benchmark::DoNotOptimize(CondensedPage(body, Sites()));
        const double inCore =
            static_cast<double>(std::clock() - started) / CLOCKS_PER_SEC / kRounds;
        state.SetIterationTime(inCore);
        ours += inCore;
        perl += inPerl;
    }
    state.counters["perl_ms"] = perl / static_cast<double>(state.iterations()) * 1e3;
    state.counters["times_as_fast_as_perl"] = perl / ours;
}
BENCHMARK(CondensePageBesidePerl)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

} // namespace
