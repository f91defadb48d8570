#include "app/custom/CustomMenu.h"

#include "app/base/QtText.h"
#include "app/custom/CustomEditor.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "core/shell/undo_recorder.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

enum Item { Open = 1, OpenInNewWindow, Properties, ResetSlot, Separator, Copy, Paste };

} // namespace

CustomMenu::CustomMenu(frmMain& form, SettingsStore& settings, UndoRecorder& undo, LinkPanel& panel,
                       PaneDeck& panes, LinkDispatch& dispatch, CustomEditor& editor)
    : QObject(&form), mnuCustom(new QMenu(u"Custom"_s, &form)), m_form(form), m_settings(settings),
      m_undo(undo), m_panes(panes), m_dispatch(dispatch), m_editor(editor) {
    Build();
    connect(mnuCustom, &QMenu::aboutToShow, &panel, [&panel] { panel.Hold(true); });
    connect(mnuCustom, &QMenu::aboutToHide, &panel, [&panel] { panel.Hold(false); });
    connect(&panel, &LinkPanel::CustomMenuRequested, this,
            [this](int link, const QPoint& position) {
                Prepare(link);
                mnuCustom->popup(position);
            });
    AddToMenuBar(panel);
}

void CustomMenu::AddToMenuBar(const LinkPanel& panel) {
    QMenu* menu = m_form.menus->linkMenu;
    for (int item = OpenInNewWindow; item <= Paste; ++item)
        menu->addAction(mnuCustLnk[static_cast<std::size_t>(item)]);
    connect(menu, &QMenu::aboutToShow, this,
            [this, &panel] { Prepare(panel.Target() ? panel.Target()->Index() : kNoLink); });
}

void CustomMenu::Prepare(int link) {
    m_slot = link;
    const Chip* chip = link == kNoLink ? nullptr : Link();
    const bool isSlot = IsCustomSlot(link);
    const bool isUsed = chip && !IsUnusedSlot(FromQt(chip->Caption()));
    const bool isEnabled = chip && chip->isEnabled();
    mnuCustLnk[Open]->setEnabled(isUsed && isEnabled);
    mnuCustLnk[OpenInNewWindow]->setEnabled(LinkPanel::CanOpenOutside(chip));
    mnuCustLnk[Properties]->setEnabled(isSlot && isEnabled);
    mnuCustLnk[ResetSlot]->setEnabled(isSlot && isUsed && isEnabled);
    mnuCustLnk[Copy]->setEnabled(isUsed);
    mnuCustLnk[Paste]->setEnabled(isSlot && isUsed && m_hasCopied);
}

void CustomMenu::Build() {
    mnuCustom->setObjectName(u"mnuCustom"_s);
    mnuCustom->setAccessibleName(u"Custom"_s);
    for (int item = 1; item < static_cast<int>(mnuCustLnk.size()); ++item) {
        const QString caption = ToQt(kCustomMenu[static_cast<std::size_t>(item) - 1]);
        QAction* action =
            item == Separator ? mnuCustom->addSeparator() : mnuCustom->addAction(caption);
        action->setObjectName(u"mnuCustLnk"_s + QString::number(item));
        connect(action, &QAction::triggered, this, [this, item] { Choose(item); });
        mnuCustLnk[static_cast<std::size_t>(item)] = action;
    }
    Prepare(kNoLink);
}

Chip* CustomMenu::Link() const {
    return m_form.lbllink.at(static_cast<std::size_t>(m_slot));
}

void CustomMenu::Choose(int item) {
    switch (item) {
    case OpenInNewWindow:
        m_panes.OpenNextOutside(true);
        [[fallthrough]];
    case Open:
        m_dispatch.Click(m_slot);
        break;
    case Properties:
        m_editor.Open(m_slot);
        break;
    case ResetSlot:
        Reset();
        break;
    case Copy:
        CopyColors();
        break;
    case Paste:
        PasteColors();
        break;
    default:
        break;
    }
}

// Unlike the editor's Reset, this one leaves the page file of a multi-link where it is.
void CustomMenu::Reset() {
    const std::string title = FromQt(Link()->Caption());
    m_undo.Run("Reset Link " + title, [&] {
        ResetCustomLink(m_settings, m_slot);
        m_undo.TellRemoved(LinkRemoved(title));
    });
    Link()->SetColors(CustomAreaColors(m_settings));
    m_form.ShowCustomLink(LoadCustomLink(m_settings, m_slot), m_slot);
}

void CustomMenu::CopyColors() {
    m_copied = Link()->Colors();
    m_hasCopied = true;
    mnuCustLnk[Paste]->setEnabled(IsCustomSlot(m_slot));
}

void CustomMenu::PasteColors() {
    if (m_copied.text == 0)
        return;
    Link()->SetColors(m_copied);
    m_undo.Run("Paste Colors", [this] { SaveLinkColors(m_settings, m_slot, m_copied); });
}

} // namespace tallowmere
