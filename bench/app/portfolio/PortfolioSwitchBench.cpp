// Switching between two portfolios of 10,000 tickers, from the click to the painted list, beside
// the time of one frame.
#include "app/BenchSession.h"
#include "app/shell/Application.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kTickers = 10000;
constexpr int kRuns = 31;
constexpr double kFrameMilliseconds = 16;

/// The median time of a step in milliseconds.
template <typename Step>
double Median(Step step) {
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
        QElapsedTimer timer;
        timer.start();
        step(run);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[kRuns / 2];
}

} // namespace

int main(int argc, char** argv) {
    PrepareBench();
    Application application(argc, argv);
    BenchSession session([](SettingsStore& settings) {
        settings.SaveSetting("Settings", "Stocks1", StoredTickers('A', kTickers));
        settings.SaveSetting("Settings", "Stocks2", StoredTickers('B', kTickers));
    });
    QApplication::processEvents();

    const double ours = Median([&](int run) {
        session.Form().lblListNum[run % 2 == 0 ? 2 : 1]->click();
        session.Form().List1->repaint();
    });
    std::printf("portfolio switch, %d tickers: %.2f ms, %.2f of a frame of %.0f ms\n", kTickers,
                ours, ours / kFrameMilliseconds, kFrameMilliseconds);
    return 0;
}
