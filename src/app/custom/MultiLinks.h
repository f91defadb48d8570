#pragma once

#include <QObject>
#include <QTimer>

#include <filesystem>

namespace tallowmere {

class LinkDispatch;
class LinkPanel;
class PaneDeck;
class Prompts;
struct RecordingState;
class SettingsStore;
class SiteTable;
class UndoRecorder;
class frmMain;

/// Records several links as one page: link 211 starts it and, blinking, ends it. Shows what was
/// recorded for the selected ticker, at once or, from a stored page, later.
class MultiLinks : public QObject {
    Q_OBJECT
public:
    MultiLinks(frmMain& form, SettingsStore& settings, UndoRecorder& undo, const SiteTable& sites,
               Prompts& prompts, const std::filesystem::path& programFolder,
               RecordingState& recording, PaneDeck& panes, LinkDispatch& dispatch,
               LinkPanel& panel);

    /// What a click of link 211 does.
    void Toggle();

    /// Takes back the page that was recorded last, if any was.
    void DiscardLast();

    QTimer Timer4;

Q_SIGNALS:
    /// What is recorded has changed; also when a recording has begun or ended.
    void RecordingChanged();
    /// The recording ended: the links take the colours of their areas again before this returns.
    void ColorsLost();

private:
    void Start();
    void Finish();
    void EnableRecordable();
    void Blink();
    void RestoreColors();
    void StorePage(std::string page);
    void ShowStored(const QString& address);
    void Show(std::string_view page);

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    const SiteTable& m_sites;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    RecordingState& m_recording;
    PaneDeck& m_panes;
    LinkDispatch& m_dispatch;
    LinkPanel& m_panel;
};

} // namespace tallowmere
