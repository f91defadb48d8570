#pragma once

#include "app/forms/Chip.h"
#include "core/custom/custom_link.h"

#include <QObject>

#include <array>

class QAction;
class QMenu;

namespace tallowmere {

class CustomEditor;
class LinkDispatch;
class LinkPanel;
class PaneDeck;
class SettingsStore;
class UndoRecorder;
class frmMain;

/// The menu `mnuCustom` of the user's own links. By keyboard it opens on every link, and offers
/// what that link can do; the menu bar has its commands too.
class CustomMenu : public QObject {
    Q_OBJECT
public:
    CustomMenu(frmMain& form, SettingsStore& settings, UndoRecorder& undo, LinkPanel& panel,
               PaneDeck& panes, LinkDispatch& dispatch, CustomEditor& editor);

    QMenu* mnuCustom;
    /// Items 1 to 7; element 0 is not used.
    std::array<QAction*, kCustomMenu.size() + 1> mnuCustLnk{};

    /// The slot, or other link, that the menu was opened for last, `kNoLink` for none.
    static constexpr int kNoLink = -1;
    int Slot() const { return m_slot; }

private:
    void Build();
    /// Makes the commands those of a link, or of none.
    void Prepare(int link);
    void AddToMenuBar(const LinkPanel& panel);
    void Choose(int item);
    void Reset();
    void CopyColors();
    void PasteColors();
    Chip* Link() const;

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    PaneDeck& m_panes;
    LinkDispatch& m_dispatch;
    CustomEditor& m_editor;
    int m_slot = kNoLink;
    ColorPair m_copied; ///< text 0: nothing was copied
    bool m_hasCopied = false;
};

} // namespace tallowmere
