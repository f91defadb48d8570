#pragma once

#include <filesystem>

namespace tallowmere {

class CustomEditor;
class CustomMenu;
class EngineProfile;
class MultiLinks;
class Prompts;
class SettingsStore;
class SiteTable;
class frmMain;
struct LinkControllers;

/// The controllers of the user's own links and of multi-links, connected to the links below them.
/// The form owns the controllers.
struct CustomControllers {
    CustomControllers(frmMain& form, SettingsStore& settings, const SiteTable& sites,
                      Prompts& prompts, const std::filesystem::path& programFolder,
                      EngineProfile& profile, LinkControllers& links);

    CustomEditor* editor;
    CustomMenu* menu;
    MultiLinks* multiLinks;
};

/// Puts the user's own links, as the settings hold them, on their labels.
void ShowCustomLinks(frmMain& form, const SettingsStore& settings);

} // namespace tallowmere
