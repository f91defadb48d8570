#pragma once

#include <QObject>

namespace tallowmere {

class PaneTabs;
class SettingsStore;
class WatchWindows;
class frmMain;

/// What was open when the program was closed comes back at the next start, when the user wants it:
/// the pages of the panes, each loaded when it is first shown, and the watch windows.
class KeptSession : public QObject {
    Q_OBJECT
public:
    KeptSession(frmMain& form, SettingsStore& settings, PaneTabs& tabs, WatchWindows& watches);

    /// Shows the pages again; false when the start has to choose the first page of the pane in
    /// front.
    bool RestorePanes();
    /// Opens the watch windows again.
    void RestoreWatches();
    /// Keeps what is open. Throws RuntimeError when it cannot be written.
    void Save();

private:
    bool IsWanted() const;

    frmMain& m_form;
    SettingsStore& m_settings;
    PaneTabs& m_tabs;
    WatchWindows& m_watches;
};

} // namespace tallowmere
