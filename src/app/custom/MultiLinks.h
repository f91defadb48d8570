#pragma once

#include "core/links/address.h"

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

/// A multi-link that was shown, and how.
struct ShownMultiLink {
    int slot = 0;    ///< of the link that it belongs to; 0: of none, it was only recorded
    int columns = 0; ///< in which its pages are laid out; 0: all on one page
};

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

    /// The multi-link that was shown last: what the page of multi-links holds.
    const ShownMultiLink& LastShown() const { return m_shown; }
    /// Keeps how a multi-link is laid out from now on.
    void KeepLayout(const ShownMultiLink& shown);

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
    void ShowStored(int slot, const TickerForms& forms);
    void Show(std::string_view page, const TickerForms& forms);

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
    ShownMultiLink m_shown;
};

} // namespace tallowmere
