#pragma once

namespace tallowmere {

class SettingsStore;
class frmMain;

/// Puts the main window where the settings say, with its side panels as they were left. A value
/// that is of no use counts as its default.
void RestoreWindow(frmMain& form, const SettingsStore& settings);

/// Writes how wide the side panels are and which are folded. Throws RuntimeError when the settings
/// cannot be written.
void SavePanels(const frmMain& form, SettingsStore& settings);

} // namespace tallowmere
