#pragma once

#include "app/forms/frmCustom.h"
#include "core/custom/placeholder_offer.h"

#include <QObject>
#include <QPointer>

#include <filesystem>

#include <optional>

namespace tallowmere {

class LinkDispatch;
class Prompts;
struct RecordingState;
class SettingsStore;
class UndoRecorder;
class frmMain;

/// Edits one slot of the user's own links: what stands in the editor, and what its buttons do.
class CustomEditor : public QObject {
    Q_OBJECT
public:
    CustomEditor(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
                 const std::filesystem::path& programFolder, RecordingState& recording,
                 LinkDispatch& dispatch);

    /// Opens the editor for a slot. When it closes and a multi-link is to be
    /// recorded, link 211 is clicked.
    void Open(int slot);

    /// The editor while it is open.
    frmCustom* Editor() const { return m_editor; }
    /// The slot that it was opened for last, 0 for none.
    int Slot() const { return m_slot; }

private:
    void TakePage();
    void ShowAddress();
    void UsePlaceholder();
    /// What could be made of the address with placeholders.
    std::optional<PlaceholderOffer> Offer() const;
    void Load();
    void Connect();
    void Reset();
    void Save();
    void StartMultiLink();
    bool CanBeFile(const std::filesystem::path& page) const;
    void PickText();
    void PickBackground();
    std::optional<std::uint32_t> Pick(std::uint32_t color, const QString& title) const;
    void TrimTitle();
    void Store(const std::string& address);
    void Refuse(std::string_view message) const;
    std::string Title() const;
    void Finished();

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    RecordingState& m_recording;
    LinkDispatch& m_dispatch;
    QPointer<frmCustom> m_editor;
    int m_slot = 0;
    bool m_offersPlaceholder = false; ///< the address is that of a page
    /// The page file that Reset marked for deletion, by its name; Save deletes it.
    std::optional<std::string> m_pendingPageFile;
};

} // namespace tallowmere
