#include "app/shell/WindowPlace.h"

#include "app/base/modMain.h"
#include "app/forms/frmMain.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

void RestoreWindow(frmMain& form, const SettingsStore& settings) {
    try {
        LoadFormPosition(form, settings);
    } catch (const RuntimeError&) {
        // The report of damaged settings names every such value.
    }
    const auto value = [&](std::string_view key) {
        return UsableSetting(settings, "frmMain", key);
    };
    form.SetPanels({.leftWidth = ToInteger(value("LeftWidth")),
                    .rightWidth = ToInteger(value("RightWidth")),
                    .portfolioHeight = ToInteger(value("PortfolioHeight")),
                    .leftFolded = ToBoolean(value("LeftFolded")),
                    .rightFolded = ToBoolean(value("RightFolded"))});
}

void SavePanels(const frmMain& form, SettingsStore& settings) {
    const PanelSizes& panels = form.Panels();
    settings.SaveSettings("frmMain", {{"LeftWidth", std::to_string(panels.leftWidth)},
                                      {"RightWidth", std::to_string(panels.rightWidth)},
                                      {"PortfolioHeight", std::to_string(panels.portfolioHeight)},
                                      {"LeftFolded", FromBoolean(panels.leftFolded)},
                                      {"RightFolded", FromBoolean(panels.rightFolded)}});
}

} // namespace tallowmere
