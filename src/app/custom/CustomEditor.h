#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"
#include "app/forms/frmCustom.h"

#include <QObject>
#include <QPointer>

#include <optional>

namespace tallowmere {

class frmMain;
class LinkDispatch;

/// Edits one slot of the user's own links: what stands in the editor, and what its buttons do.
class CustomEditor : public QObject {
    Q_OBJECT
public:
    CustomEditor(frmMain& form, MainState& state, const Services& services, LinkDispatch& dispatch);

    /// Opens the editor for the current custom slot. When it closes and a multi-link is to be
    /// recorded, link 211 is clicked.
    void Open();

    /// The editor while it is open.
    frmCustom* Editor() const { return m_editor; }

private:
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
    MainState& m_state;
    Services m_services;
    LinkDispatch& m_dispatch;
    QPointer<frmCustom> m_editor;
    int m_slot = MainState::kNoSlot;
    /// The page file that Reset marked for deletion, by its name; Save deletes it.
    std::optional<std::string> m_pendingPageFile;
};

} // namespace tallowmere
