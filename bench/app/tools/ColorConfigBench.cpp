// The colours of all areas applied to all labels, and a change of all of them up to the painted
// window, beside the time of one frame.
#include "app/BenchSession.h"
#include "app/shell/Application.h"
#include "app/tools/ColorConfig.h"
#include "core/shell/setting_keys.h"
#include "core/tools/color_areas.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace tallowmere;

namespace {

constexpr int kRuns = 31;
constexpr double kFrameMilliseconds = 16;

/// Prints the median time of a step that takes the number of its run.
template <typename Step>
void Measure(const char* what, Step step) {
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
        QElapsedTimer timer;
        timer.start();
        step(run);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    const double median = times[kRuns / 2];
    std::printf("%s: %.2f ms, %.2f of a frame of %.0f ms\n", what, median,
                median / kFrameMilliseconds, kFrameMilliseconds);
}

} // namespace

int main(int argc, char** argv) {
    PrepareBench();
    Application application(argc, argv);
    BenchSession session;
    QApplication::processEvents();

    Measure("colours of all links applied",
            [&](int) { session->Controllers().tools.colors->Apply(); });
    Measure("all colours changed, from the settings file to the painted window", [&](int run) {
        std::vector<std::pair<std::string, std::string>> colors;
        for (const ColorArea& area : kColorAreas)
            colors.emplace_back(BackgroundColorKey(area.code), std::to_string(run * 1000));
        session->Settings().SaveSettings(kColorsSection, colors);
        session->Controllers().tools.colors->Apply();
        session.Form().repaint();
    });
    return 0;
}
