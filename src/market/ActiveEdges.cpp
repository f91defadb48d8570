#include "market/ActiveEdges.h"

#include "forms/frmMain.h"
#include "shell/conversion.h"

namespace tallowmere {

namespace {

constexpr int kHideMilliseconds = 3000;
constexpr int kLeftEdgeTwips = 90;
constexpr int kRightEdgeTwips = 300;

} // namespace

ActiveEdges::ActiveEdges(frmMain& form, MainState& state, const Services& services)
    : QObject(&form), m_form(form), m_state(state), m_services(services) {
    timAE.setInterval(kHideMilliseconds);
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
    if (x > width - kRightEdgeTwips) {
        m_form.fraRight->show();
        ShowLeft(false);
        Touch();
    } else if (x < kLeftEdgeTwips) {
        ShowLeft(true);
        m_form.fraRight->hide();
    } else {
        return;
    }
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
    if (m_state.edgesHeld)
        return;
    if (m_state.activeEdge)
        HideAll();
    timAE.stop();
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
