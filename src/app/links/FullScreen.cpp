#include "app/links/FullScreen.h"

#include "app/base/modMain.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/FullScreenHint.h"
#include "app/forms/frmFinder.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/text/runtime_error.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QToolBar>

#include <utility>

namespace tallowmere {

namespace {

constexpr int kUpperEdge = 2; ///< pixels: where the pointer asks for the way back

} // namespace

FullScreen::FullScreen(frmMain& form, SettingsStore& settings, PaneDeck& deck)
    : QObject(&form), m_form(form), m_settings(settings), m_deck(deck),
      m_command(form.menus->At("fullScreen")) {
    connect(m_command, &QAction::triggered, this, &FullScreen::Toggle);
    connect(&deck, &PaneDeck::FillWanted, this, &FullScreen::Grant);
    connect(&deck, &PaneDeck::FillOver, this, &FullScreen::OnFillOver);
    connect(&deck, &PaneDeck::FrontChanged, this, [this](const BrowserPane* pane) {
        if (m_filler && m_filler.data() != pane)
            EndFill();
    });
}

void FullScreen::Toggle() {
    if (m_isOn) {
        Leave();
        return;
    }
    m_isPagesWish = false;
    Enter();
    ShowHint({});
}

void FullScreen::Enter() {
    m_isOn = true;
    m_before = m_form.windowState();
    m_place = m_form.geometry();
    m_focus = m_form.focusWidget();
    try {
        // While it fills the screen the window has no place of its own that could be kept.
        SaveFormPosition(m_form, m_settings);
    } catch (const RuntimeError&) {
        // The end of the program tells of settings that cannot be written.
    }
    m_form.menuBar()->hide();
    for (QToolBar* bar : m_form.findChildren<QToolBar*>())
        if (!bar->isHidden()) {
            bar->hide();
            m_bars << bar;
        }
    m_form.ShowPanesAlone(true);
    m_form.setWindowState(m_before | Qt::WindowFullScreen);
    m_deck.Front()->FocusPage();
    qApp->installEventFilter(this);
}

void FullScreen::Leave() {
    if (!std::exchange(m_isOn, false))
        return;
    qApp->removeEventFilter(this);
    if (m_hint)
        m_hint->hide();
    if (m_filler)
        std::exchange(m_filler, nullptr)->EndFill();
    m_form.setWindowState((m_before & ~Qt::WindowMinimized) |
                          (m_form.windowState() & Qt::WindowMinimized));
    // Desktops answer late, and what is laid out for the whole screen first does not all fold back.
    if (!m_form.isMaximized() && !m_form.isMinimized())
        m_form.setGeometry(m_place);
    m_form.menuBar()->show();
    for (const QPointer<QToolBar>& bar : std::exchange(m_bars, {}))
        if (bar)
            bar->show();
    m_form.ShowPanesAlone(false);
    if (m_focus)
        m_focus->setFocus();
}

// The engine asks for nothing of the kind before the user clicked or pressed a key on the page.
void FullScreen::Grant(BrowserPane* pane, const QString& host, bool* isGranted) {
    if (pane != m_deck.Front() || !m_form.isActiveWindow() || QApplication::activeModalWidget())
        return;
    *isGranted = true;
    m_filler = pane;
    if (!m_isOn) {
        m_isPagesWish = true;
        Enter();
    }
    ShowHint(host);
}

void FullScreen::OnFillOver(const BrowserPane* pane) {
    if (pane == m_filler.data())
        EndFill();
}

void FullScreen::EndFill() {
    if (m_isPagesWish) {
        Leave();
        return;
    }
    if (m_filler)
        std::exchange(m_filler, nullptr)->EndFill();
    ShowHint({});
}

void FullScreen::ShowHint(const QString& host) {
    if (!m_hint) {
        m_hint = new FullScreenHint(m_form.centralWidget());
        connect(m_hint, &FullScreenHint::LeaveWanted, this, &FullScreen::Leave);
    }
    const QString key = m_command->shortcut().toString(QKeySequence::NativeText);
    const QString keys = key.isEmpty() ? tr("Esc") : tr("%1 or Esc").arg(key);
    m_hint->SetText(host.isEmpty() ? tr("Full screen: %1 goes back.").arg(keys)
                                   : tr("%1 fills the screen: %2 goes back.").arg(host, keys));
    m_hint->hide();
    m_hint->ShowForAWhile();
}

// A page that fills the screen may look like anything; whose it is is said again and again.
void FullScreen::OnPointer(const QPointF& position) {
    if (m_hint && (m_filler || position.y() <= kUpperEdge))
        m_hint->ShowForAWhile();
}

bool FullScreen::HasTheKeys() const {
    const auto* finder = m_form.findChild<frmFinder*>();
    const bool isFinding = m_deck.Front()->IsFinding() || (finder && finder->isVisible());
    return m_form.isActiveWindow() && !QApplication::activePopupWidget() &&
           !QApplication::activeModalWidget() && !isFinding;
}

// Escape is seen here before any page, shortcut or box.
bool FullScreen::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape || !HasTheKeys())
            break;
        event->accept();
        if (event->type() == QEvent::KeyPress)
            Leave();
        return true;
    case QEvent::MouseMove:
        OnPointer(m_form.mapFromGlobal(static_cast<QMouseEvent*>(event)->globalPosition()));
        break;
    case QEvent::WindowStateChange:
        // Desktops have ways of their own to end it.
        if (watched == &m_form && !m_form.isFullScreen() && !m_form.isMinimized())
            Leave();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tallowmere
