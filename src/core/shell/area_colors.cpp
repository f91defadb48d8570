#include "core/shell/area_colors.h"

#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

AreaColors ReadAreaColors(const SettingsStore& settings) {
    return AreaColors([&settings](std::string_view key) -> std::optional<std::uint32_t> {
        const std::string value = settings.GetSetting(kColorsSection, key, "");
        try {
            return value.empty() ? std::nullopt : std::optional(ToColor(value));
        } catch (const RuntimeError&) {
            return std::nullopt; // the report at the start names it
        }
    });
}

} // namespace tallowmere
