#include "app/custom/CustomMenu.h"

#include "app/base/QtText.h"
#include "app/custom/CustomEditor.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

enum Item { Open = 1, OpenInNewWindow, Properties, ResetSlot, Separator, Copy, Paste };

} // namespace

CustomMenu::CustomMenu(frmMain& form, MainState& state, const Services& services, LinkPanel& panel,
                       LinkDispatch& dispatch, CustomEditor& editor)
    : QObject(&form), mnuCustom(new QMenu(u"Custom"_s, &form)), m_form(form), m_state(state),
      m_services(services), m_dispatch(dispatch), m_editor(editor) {
    Build();
    connect(mnuCustom, &QMenu::aboutToShow, this, [this] { m_state.edgesHeld = true; });
    connect(mnuCustom, &QMenu::aboutToHide, this, [this] { m_state.edgesHeld = false; });
    connect(&panel, &LinkPanel::CustomMenuRequested, this,
            [this](int, const QPoint& position) { mnuCustom->popup(position); });
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
    mnuCustLnk[Paste]->setEnabled(false);
}

Chip* CustomMenu::Link() const {
    return m_form.lbllink.at(static_cast<std::size_t>(m_state.currentCustomSlot));
}

void CustomMenu::Choose(int item) {
    switch (item) {
    case OpenInNewWindow:
        m_state.rightPressed = true;
        [[fallthrough]];
    case Open:
        m_dispatch.Click(m_state.currentCustomSlot);
        break;
    case Properties:
        m_editor.Open();
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
    const int slot = m_state.currentCustomSlot;
    ResetCustomLink(m_services.settings, slot);
    Link()->SetColors(CustomAreaColors(m_services.settings));
    m_form.ShowCustomLink(LoadCustomLink(m_services.settings, slot), slot);
}

void CustomMenu::CopyColors() {
    m_state.copiedColors = Link()->Colors();
    mnuCustLnk[Paste]->setEnabled(true);
}

void CustomMenu::PasteColors() {
    if (m_state.copiedColors.text == 0)
        return;
    Link()->SetColors(m_state.copiedColors);
    SaveLinkColors(m_services.settings, m_state.currentCustomSlot, m_state.copiedColors);
}

} // namespace tallowmere
