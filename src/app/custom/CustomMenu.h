#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"
#include "core/custom/custom_link.h"

#include <QObject>

#include <array>

class QAction;
class QMenu;

namespace tallowmere {

class CustomEditor;
class frmMain;
class LinkDispatch;
class LinkPanel;

/// The menu `mnuCustom` of the user's own links.
class CustomMenu : public QObject {
    Q_OBJECT
public:
    CustomMenu(frmMain& form, MainState& state, const Services& services, LinkPanel& panel,
               LinkDispatch& dispatch, CustomEditor& editor);

    QMenu* mnuCustom;
    /// Items 1 to 7; element 0 is not used.
    std::array<QAction*, kCustomMenu.size() + 1> mnuCustLnk{};

private:
    void Build();
    void Choose(int item);
    void Reset();
    void CopyColors();
    void PasteColors();
    Chip* Link() const;

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    LinkDispatch& m_dispatch;
    CustomEditor& m_editor;
};

} // namespace tallowmere
