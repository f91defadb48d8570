#pragma once

#include "app/base/FinderSource.h"

#include <filesystem>

namespace tallowmere {

class CustomEditor;
class CustomMenu;
class EngineProfile;
class MultiLinks;
class Prompts;
class SettingsStore;
class SiteTable;
class UndoRecorder;
class frmMain;
struct LinkControllers;

/// The controllers of the user's own links and of multi-links, connected to the links below them.
/// The form owns the controllers.
struct CustomControllers {
    CustomControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                      const SiteTable& sites, Prompts& prompts,
                      const std::filesystem::path& programFolder, EngineProfile& profile,
                      LinkControllers& links);

    CustomEditor* editor;
    CustomMenu* menu;
    MultiLinks* multiLinks;
    MakeFinderSources makeFinderSources;
};

/// Leaves no title and no colour of the user's own links on their labels, until they are shown
/// anew.
void ForgetCustomLinks(frmMain& form);

/// Puts the user's own links, as the settings hold them, on their labels.
void ShowCustomLinks(frmMain& form, const SettingsStore& settings);

} // namespace tallowmere
