#pragma once

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "core/shell/settings_store.h"
#include "core/sites/site_table.h"

#include <filesystem>

namespace tallowmere {

class WebAccess;
class EngineProfile;

/// What the controllers work with; everything is owned by the session.
struct Services {
    SettingsStore& settings;
    const SiteTable& sites;
    Prompts& prompts;
    const Clock& clock;
    std::filesystem::path programFolder; ///< notes, reminders and generated pages
};

} // namespace tallowmere
