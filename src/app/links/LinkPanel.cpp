#include "app/links/LinkPanel.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/PaneDeck.h"
#include "app/links/RecordingState.h"
#include "core/custom/custom_link.h"
#include "core/links/portfolio_address.h"
#include "core/shell/undo_recorder.h"
#include "core/sites/site_table.h"

#include <QApplication>
#include <QPointer>
#include <QScopeGuard>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

bool IsUnusedSlot(const Chip* link) {
    return link->Caption() == ToQt(kEmptyCustomCaption);
}

// Tools work on the window itself: a separate browser has nothing to show for them.
bool OpensOutside(LinkAction action) {
    switch (action) {
    case LinkAction::Refresh:
    case LinkAction::Back:
    case LinkAction::Forward:
    case LinkAction::CopyAddress:
    case LinkAction::Stop:
    case LinkAction::Setup:
    case LinkAction::Calculator:
    case LinkAction::Reminders:
        return false;
    default:
        return true;
    }
}

LinkAction ActionOf(const Chip* link) {
    return Catalogue()[static_cast<std::size_t>(link->Index())].action;
}

bool HasHistory(const Chip* link) {
    return ActionOf(link) == LinkAction::Back || ActionOf(link) == LinkAction::Forward;
}

} // namespace

LinkPanel::LinkPanel(frmMain& form, const RecordingState& recording, SettingsStore& settings,
                     UndoRecorder& undo, const SiteTable& sites, Prompts& prompts,
                     LinkDispatch& dispatch, PaneDeck& panes)
    : QObject(&form), m_form(form), m_recording(recording), m_settings(settings), m_undo(undo),
      m_sites(sites), m_prompts(prompts), m_dispatch(dispatch), m_panes(panes) {
    for (Chip* link : form.lbllink)
        Connect(link);
    for (const auto& [action, index] : form.menus->links)
        connect(action, &QAction::triggered, this, [this, i = index] { m_dispatch.Click(i); });
    connect(form.menus->linkMenu, &QMenu::aboutToShow, this, &LinkPanel::PrepareLinkMenu);
    connect(form.menus->openOutside, &QAction::triggered, this,
            [this] { OpenTarget(PagePlace::Outside); });
    connect(form.menus->At("openInTab"), &QAction::triggered, this,
            [this] { OpenTarget(PagePlace::FrontTab); });
}

void LinkPanel::Connect(Chip* link) {
    connect(link, &Chip::MouseDown, this, [=, this](auto button) { MouseDown(link, button); });
    connect(link, &Chip::MouseMoved, this,
            [=, this](auto buttons, const QPoint& by) { MouseMove(link, buttons, by); });
    connect(link, &Chip::MouseUp, this,
            [=, this](auto button, bool inside) { MouseUp(link, button, inside); });
    connect(link, &Chip::clicked, this, [=, this] { OpenWhere(link, m_panes.Next()); });
    connect(link, &Chip::Focused, this, [=, this] { m_target = link; });
    connect(link, &Chip::MenuKey, this, [=, this] { OpenMenu(link); });
    connect(link, &Chip::PointerMoved, this, &LinkPanel::EdgesTouched);
    if (HasHistory(link)) {
        link->SetHasLongPress(true);
        connect(link, &Chip::LongPressed, this, [=, this] { LongPress(link); });
    }
    if (IsCustomSlot(link->Index())) {
        link->SetTakesDrops(true);
        connect(link, &Chip::Dropped, this, [=, this](int source) { Drop(link, source); });
    }
}

void LinkPanel::MouseDown(Chip* link, Qt::MouseButton button) {
    m_target = link;
    if (button == Qt::LeftButton) {
        m_panes.OpenNext(PlaceOf(link, button));
        m_pressed = true;
        m_looksPressed = true;
        m_savedColors = link->Colors();
        link->SetColors(Swapped(m_savedColors));
        Q_EMIT Held(true);
    } else if (button == Qt::RightButton) {
        RightPress(link);
    }
}

// Only what shows a page opens in a tab.
PagePlace LinkPanel::PlaceOf(const Chip* link, Qt::MouseButton button) const {
    const Qt::KeyboardModifiers keys = QGuiApplication::keyboardModifiers();
    if (!CanOpenOutside(link))
        return PagePlace::Pane;
    return PlaceOfClick(button == Qt::MiddleButton, keys.testFlag(Qt::ControlModifier),
                        keys.testFlag(Qt::ShiftModifier));
}

// A link that came to nothing opens no later page in a tab; a menu may still choose one.
void LinkPanel::OpenWhere(Chip* link, PagePlace place) {
    m_panes.OpenNext(place);
    m_dispatch.Click(link->Index());
    if (IsTab(m_panes.Next()) && !QApplication::activePopupWidget())
        m_panes.OpenNext(PagePlace::Pane);
}

void LinkPanel::RightPress(Chip* link) {
    if (HasHistory(link)) {
        OpenHistory(link);
    } else if (!IsCustomSlot(link->Index())) {
        if (OpensOutside(ActionOf(link)))
            m_panes.OpenNextOutside(true);
    } else if (IsUnusedSlot(link)) {
        m_dispatch.Click(link->Index());
    } else {
        Q_EMIT CustomMenuRequested(link->Index(), QCursor::pos());
    }
}

// By keyboard every link has a menu; an unused slot goes straight to the editor here too.
void LinkPanel::OpenMenu(Chip* link) {
    if (IsUnusedSlot(link))
        m_dispatch.Click(link->Index());
    else if (HasHistory(link))
        OpenHistory(link);
    else
        Q_EMIT CustomMenuRequested(link->Index(), link->mapToGlobal(link->rect().bottomLeft()));
}

void LinkPanel::OpenHistory(const Chip* link) {
    Q_EMIT HistoryRequested(ActionOf(link) == LinkAction::Back ? HistorySide::Back
                                                               : HistorySide::Forward,
                            link->mapToGlobal(link->rect().bottomLeft()));
}

// The button is still down, but the label will not be clicked.
void LinkPanel::LongPress(Chip* link) {
    RestoreColors(link);
    m_pressed = false;
    Q_EMIT Held(false);
    OpenHistory(link);
}

bool LinkPanel::CanOpenOutside(const Chip* link) {
    return link && link->isEnabled() && !IsUnusedSlot(link) && OpensOutside(ActionOf(link));
}

void LinkPanel::PrepareLinkMenu() {
    QAction* open = m_form.menus->openOutside;
    open->setEnabled(CanOpenOutside(m_target));
    open->setText(m_target
                      ? tr("Open %1 in Separate &Browser").arg(MenuCaption(m_target->Caption()))
                      : tr("Open in Separate &Browser"));
    QAction* tab = m_form.menus->At("openInTab");
    tab->setEnabled(CanOpenOutside(m_target) && !m_recording.templateMode);
    tab->setText(m_target ? tr("Open %1 in New &Tab").arg(MenuCaption(m_target->Caption()))
                          : tr("Open in New &Tab"));
}

void LinkPanel::OpenTarget(PagePlace place) {
    if (!CanOpenOutside(m_target))
        return;
    m_panes.OpenNext(place);
    m_dispatch.Click(m_target->Index());
    // A link that came to nothing sends no later one elsewhere; a menu may still choose a page.
    if (!QApplication::activePopupWidget())
        m_panes.OpenNext(PagePlace::Pane);
}

void LinkPanel::Open(int index, PagePlace place, const QString& ticker) {
    Chip* link = m_form.lbllink.at(static_cast<std::size_t>(index));
    if (!link->isEnabled())
        return;
    // A menu pops up below the link that has the focus.
    if (ActionOf(link) == LinkAction::Menu || ActionOf(link) == LinkAction::QueryPortfolio)
        link->setFocus();
    m_panes.OpenNext(CanOpenOutside(link) ? place : PagePlace::Pane);
    m_dispatch.ClickFor(index, ticker);
    if (!QApplication::activePopupWidget())
        m_panes.OpenNext(PagePlace::Pane);
}

void LinkPanel::Hold(bool held) {
    Q_EMIT Held(held);
    if (!held)
        ForgetPointer();
}

// Only when the menu is gone does the window system tell where the pointer is.
void LinkPanel::ForgetPointer() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            for (Chip* link : m_form.lbllink)
                link->ForgetPointer();
        },
        Qt::QueuedConnection);
}

void LinkPanel::MouseMove(Chip* link, Qt::MouseButtons buttons, const QPoint& movedBy) {
    if (!m_pressed || !(buttons & Qt::LeftButton))
        return;
    const bool drags = IsCustomSlot(link->Index()) && !IsUnusedSlot(link) &&
                       movedBy.manhattanLength() >= QApplication::startDragDistance();
    if (!m_recording.templateMode)
        RestoreColors(link);
    if (!drags)
        return;
    m_pressed = false;
    link->StartDrag();
    Q_EMIT Held(false);
}

void LinkPanel::MouseUp(Chip* link, Qt::MouseButton button, bool inside) {
    if (button == Qt::LeftButton && m_pressed) {
        if (!m_recording.templateMode) {
            RestoreColors(link);
            m_pressed = false;
        }
        Q_EMIT Held(false);
    } else if (button == Qt::MiddleButton && inside && link->isEnabled()) {
        if (const PagePlace place = PlaceOf(link, button); IsTab(place))
            OpenWhere(link, place);
    } else if (button == Qt::RightButton && inside && link->isEnabled() &&
               m_panes.OpensNextOutside()) {
        m_dispatch.Click(link->Index());
    }
}

void LinkPanel::RestoreColors(Chip* link) {
    if (m_looksPressed)
        link->SetColors(m_savedColors);
    m_looksPressed = false;
}

void LinkPanel::Drop(Chip* target, int source) {
    if (source == target->Index() || !IsCustomSlot(source))
        return;
    const auto settled = qScopeGuard([alive = QPointer(this)] {
        if (alive)
            alive->ForgetPointer();
    });
    if (!IsUnusedSlot(target) && !m_prompts.Ask(ToQt(OverwriteQuestion(FromQt(target->Caption()))),
                                                ToQt(kMoveLinkCaption), Prompts::Answer::No))
        return;
    const QString overwritten = IsUnusedSlot(target) ? QString() : target->Caption();
    const Chip* moved = m_form.lbllink.at(static_cast<std::size_t>(source));
    m_undo.Run("Move Link " + FromQt(moved->Caption()), [&] {
        MoveCustomLink(m_settings, source, target->Index());
        if (!overwritten.isEmpty())
            m_undo.TellRemoved(LinkRemoved(FromQt(overwritten)));
    });
    Chip* emptied = m_form.lbllink.at(static_cast<std::size_t>(source));
    target->SetColors(emptied->Colors());
    emptied->SetColors(CustomAreaColors(m_settings));
    m_form.ShowCustomLink(LoadCustomLink(m_settings, target->Index()), target->Index());
    m_form.ShowCustomLink(LoadCustomLink(m_settings, source), source);
}

void LinkPanel::EnableLinks() {
    for (Chip* link : m_form.lbllink)
        link->setEnabled(true);
    for (std::size_t n = 1; n < m_form.lblListNum.size(); ++n)
        m_form.lblListNum[n]->setEnabled(true);
    m_form.List1->setEnabled(true);
    m_form.txtStock->setEnabled(true);
    m_form.Label1->setEnabled(true);
    for (const auto& command : m_form.menus->links)
        command.first->setEnabled(true);
}

void LinkPanel::SendAll(const QString& site) {
    std::vector<std::string> tickers;
    for (const QString& item : m_form.List1->Items())
        tickers.push_back(FromQt(item));
    m_panes.Navigate(ToQt(SendAllAddress(tickers, FromQt(site), m_sites)));
}

} // namespace tallowmere
