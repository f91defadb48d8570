#pragma once

#include <QObject>

#include <filesystem>

namespace tallowmere {

struct Accounts;
class ColorSettings;
class PaneDeck;
class Prompts;
class SettingsStore;
class UndoRecorder;
class frmMain;
class frmUser;

/// The setup dialog: its check boxes work and are saved at once, its texts when it closes, and
/// what leads out of it follows then.
class Setup : public QObject {
    Q_OBJECT
public:
    Setup(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
          const std::filesystem::path& programFolder, Accounts& accounts, PaneDeck& panes,
          ColorSettings& colors);

    /// Shows the dialog and returns when it is closed and what was asked for is under way.
    void Show();

Q_SIGNALS:
    /// The dialog is closed: the colours may have changed.
    void Closed();
    /// A check box was switched.
    void TickerSwitched(bool on);
    void EdgesSwitched(bool on);
    void HelpRequested();
    void ReportRequested();

private:
    void Fill(frmUser& dialog) const;
    void Connect(frmUser& dialog);
    void ToggleMember(frmUser& dialog);
    void PurgeNotes();
    void SaveStartPage();
    void Save(const frmUser& dialog);

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    Accounts& m_accounts;
    PaneDeck& m_panes;
    ColorSettings& m_colors;
    bool m_memberArmed = false;
    bool m_helpRequested = false;
    bool m_reportRequested = false;
};

} // namespace tallowmere
