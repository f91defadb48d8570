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
    form.SetPanels(ToInteger(value("LeftWidth")), ToInteger(value("RightWidth")),
                   ToBoolean(value("LeftFolded")), ToBoolean(value("RightFolded")));
}

void SavePanels(const frmMain& form, SettingsStore& settings) {
    settings.SaveSetting("frmMain", "LeftWidth", std::to_string(form.LeftWidth()));
    settings.SaveSetting("frmMain", "RightWidth", std::to_string(form.RightWidth()));
    settings.SaveSetting("frmMain", "LeftFolded", FromBoolean(form.LeftFolded()));
    settings.SaveSetting("frmMain", "RightFolded", FromBoolean(form.RightFolded()));
}

} // namespace tallowmere
