#pragma once

#include "links/site_table.h"
#include "shell/Clock.h"
#include "shell/Prompts.h"
#include "shell/settings_store.h"

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
