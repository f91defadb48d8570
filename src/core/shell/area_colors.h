#pragma once

#include "core/tools/color_config.h"

namespace tallowmere {

class SettingsStore;

/// The colours of all areas as the settings hold them. A value that is no colour counts as never
/// saved.
AreaColors ReadAreaColors(const SettingsStore& settings);

} // namespace tallowmere
