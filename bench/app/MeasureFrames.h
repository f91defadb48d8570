#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace tallowmere {

/// Prints the median time of so many runs of a step, beside the time of a frame. The step takes the
/// number of its run.
template <typename Step>
void MeasureFrames(const char* what, int runs, Step step) {
    constexpr double kFrameMilliseconds = 16;
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        step(run);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    std::printf("%s: %.2f ms, %.2f of a frame of %.0f ms\n", what, median,
                median / kFrameMilliseconds, kFrameMilliseconds);
}

} // namespace tallowmere
