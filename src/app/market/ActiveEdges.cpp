#include "app/market/ActiveEdges.h"

#include "app/forms/frmMain.h"
#include "core/market/timers.h"
#include "core/shell/conversion.h"

#include <QApplication>

namespace tallowmere {

ActiveEdges::ActiveEdges(frmMain& form, MainState& state, const Services& services)
    : QObject(&form), m_form(form), m_state(state), m_services(services) {
    timAE.setInterval(kEdgeInterval);
    connect(&timAE, &QTimer::timeout, this, &ActiveEdges::Tick);
    connect(&form, &frmMain::PointerMoved, this, &ActiveEdges::PointerMoved);
}

void ActiveEdges::Apply() {
    if (m_state.activeEdge) {
        HideAll();
        return;
    }
    timAE.stop();
    m_form.fraRight->show();
    ShowLeft(true);
    m_form.LayOut();
}

void ActiveEdges::Switch(bool on) {
    m_services.settings.SaveSetting("Settings", "ActiveEdge", FromBoolean(on));
    m_state.activeEdge = on;
    Apply();
}

void ActiveEdges::PointerMoved(int x, int width) {
    if (!m_state.activeEdge)
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
    if (m_state.activeEdge)
        timAE.start();
}

void ActiveEdges::HideAll() {
    m_form.fraRight->hide();
    ShowLeft(false);
    m_form.LayOut();
}

void ActiveEdges::Tick() {
    const EdgeTick outcome = OnEdgeTick(IsHeld(), m_state.activeEdge);
    if (outcome == EdgeTick::KeepRunning)
        return;
    if (outcome == EdgeTick::HideAndStop)
        HideAll();
    timAE.stop();
}

// A menu that popped up from a panel and a half-typed ticker would vanish under the user's hands.
bool ActiveEdges::IsHeld() const {
    const bool isTyping =
        m_form.focusWidget() == m_form.txtStock && !m_form.txtStock->text().isEmpty();
    return m_state.edgesHeld || isTyping || QApplication::activePopupWidget() != nullptr;
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
