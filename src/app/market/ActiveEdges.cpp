#include "app/market/ActiveEdges.h"

#include "app/forms/frmMain.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/links/SitePopups.h"
#include "core/market/timers.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"

#include <QApplication>

namespace tallowmere {

ActiveEdges::ActiveEdges(frmMain& form, SettingsStore& settings, PaneDeck& panes, LinkPanel& panel,
                         SitePopups& popups)
    : QObject(&form), m_form(form), m_settings(settings) {
    timAE.setInterval(kEdgeInterval);
    connect(&timAE, &QTimer::timeout, this, &ActiveEdges::Tick);
    connect(&form, &frmMain::PointerMoved, this, &ActiveEdges::PointerMoved);
    connect(form.List1, &ListBox::PointerMoved, this, &ActiveEdges::Touch);
    connect(&panel, &LinkPanel::EdgesTouched, this, &ActiveEdges::Touch);
    connect(&panel, &LinkPanel::Held, this, &ActiveEdges::Hold);
    connect(&popups, &SitePopups::Held, this, &ActiveEdges::Hold);
    connect(&panes, &PaneDeck::BrowsingStarts, this, [this] {
        if (m_isActive)
            HideAll();
    });
}

void ActiveEdges::Start() {
    m_isActive = ToBoolean(UsableSetting(m_settings, kSettingsSection, "ActiveEdge"));
    if (m_isActive)
        Apply();
}

void ActiveEdges::Apply() {
    if (m_isActive) {
        HideAll();
        return;
    }
    timAE.stop();
    m_form.fraRight->show();
    ShowLeft(true);
    m_form.LayOut();
}

void ActiveEdges::Switch(bool on) {
    m_settings.SaveSetting("Settings", "ActiveEdge", FromBoolean(on));
    m_isActive = on;
    Apply();
}

void ActiveEdges::PointerMoved(int x, int width) {
    if (!m_isActive)
        return;
    const Edge edge = EdgeAt(x, width);
    if (edge == Edge::None)
        return;
    m_form.fraRight->setVisible(edge == Edge::Right);
    ShowLeft(edge == Edge::Left);
    Touch();
    m_form.LayOut();
}

void ActiveEdges::Touch() {
    if (m_isActive)
        timAE.start();
}

void ActiveEdges::HideAll() {
    m_form.fraRight->hide();
    ShowLeft(false);
    m_form.LayOut();
}

void ActiveEdges::Tick() {
    const EdgeTick outcome = OnEdgeTick(MayNotHide(), m_isActive);
    if (outcome == EdgeTick::KeepRunning)
        return;
    if (outcome == EdgeTick::HideAndStop)
        HideAll();
    timAE.stop();
}

// A menu that popped up from a panel and a half-typed ticker would vanish under the user's hands.
bool ActiveEdges::MayNotHide() const {
    const bool isTyping =
        m_form.focusWidget() == m_form.txtStock && !m_form.txtStock->text().isEmpty();
    return m_isHeld || isTyping || QApplication::activePopupWidget() != nullptr;
}

void ActiveEdges::ShowLeft(bool shown) {
    m_form.fraLeft->setVisible(shown);
    for (std::size_t n = 1; n < m_form.lblListNum.size(); ++n)
        m_form.lblListNum[n]->setVisible(shown);
    m_form.List1->setVisible(shown);
    m_form.txtStock->setVisible(shown);
    m_form.Label1->setVisible(shown);
}

} // namespace tallowmere
