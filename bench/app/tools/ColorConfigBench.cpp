// The colours of all areas applied to all labels, and a change of all of them up to the painted
// window, beside the time of one frame.
#include "app/BenchSession.h"
#include "app/MeasureFrames.h"
#include "app/shell/Application.h"
#include "app/tools/ColorConfig.h"
#include "core/shell/setting_keys.h"
#include "core/tools/color_areas.h"

using namespace tallowmere;

namespace {

constexpr int kRuns = 31;

} // namespace

int main(int argc, char** argv) {
    PrepareBench();
    Application application(argc, argv);
    BenchSession session;
    QApplication::processEvents();

    MeasureFrames("colours of all links applied", kRuns,
                  [&](int) { session->Controllers().tools.colors->Apply(); });
    MeasureFrames(
        "all colours changed, from the settings file to the painted window", kRuns, [&](int run) {
            std::vector<std::pair<std::string, std::string>> colors;
            for (const ColorArea& area : kColorAreas)
                colors.emplace_back(BackgroundColorKey(area.code), std::to_string(run * 1000));
            session->Settings().SaveSettings(kColorsSection, colors);
            session->Controllers().tools.colors->Apply();
            session.Form().repaint();
        });
    return 0;
}
