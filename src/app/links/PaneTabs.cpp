#include "app/links/PaneTabs.h"

#include "app/base/PortalAddress.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/TabRow.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace tallowmere {

PaneTabs::PaneTabs(frmMain& form, PaneDeck& deck) : QObject(&form), m_form(form), m_deck(deck) {
    connect(&deck, &PaneDeck::TabWanted, this, &PaneTabs::Open);
    connect(&deck, &PaneDeck::FrontChanged, this, &PaneTabs::OnFront);
    connect(form.tabRow, &TabRow::Chosen, this, &PaneTabs::ShowAt);
    connect(form.tabRow, &TabRow::CloseRequested, this,
            [this](int index) { Close(Row().value(index)); });
    for (const BrowserPane* pane : {form.Web, form.WebB}) {
        connect(pane, &BrowserPane::TitleChanged, this, &PaneTabs::ShowRow);
        connect(pane, &BrowserPane::DocumentComplete, this, &PaneTabs::ShowRow);
    }
    connect(form.menus->Offer("closeTab"), &QAction::triggered, this, &PaneTabs::CloseFront);
    connect(form.menus->At("nextTab"), &QAction::triggered, this, [this] { Walk(1); });
    connect(form.menus->At("previousTab"), &QAction::triggered, this, [this] { Walk(-1); });
}

int PaneTabs::Room() const {
    return std::max(0, kMostTabs - static_cast<int>(m_form.FurtherPanes().size()));
}

BrowserPane* PaneTabs::Add() {
    if (Room() == 0) {
        m_deck.ShowLastingStatus(tr("There is no room for more than %1 tabs").arg(kMostTabs));
        return nullptr;
    }
    BrowserPane* pane = m_form.AddPane();
    m_deck.Adopt(*pane);
    connect(pane, &BrowserPane::TitleChanged, this, &PaneTabs::ShowRow);
    connect(pane, &BrowserPane::DocumentComplete, this, &PaneTabs::ShowRow);
    return pane;
}

void PaneTabs::Open(const QString& address, bool isInFront) {
    BrowserPane* pane = Add();
    if (!pane)
        return;
    if (isInFront)
        m_deck.Show(pane);
    pane->Navigate(address);
    ShowRow();
}

void PaneTabs::AddWaiting(const TabPage& page) {
    BrowserPane* pane = Add();
    if (!pane)
        return;
    Await(pane, page);
    ShowRow();
}

void PaneTabs::Await(BrowserPane* pane, const TabPage& page) {
    if (!page.address.isEmpty())
        m_waiting.insert(pane, page);
}

void PaneTabs::Close(BrowserPane* pane) {
    if (!pane || !m_form.FurtherPanes().contains(pane))
        return;
    const QList<BrowserPane*> row = Row();
    if (m_deck.Front() == pane) {
        const qsizetype at = row.indexOf(pane);
        m_deck.Show(row[at + 1 < row.size() ? at + 1 : at - 1]);
    }
    m_waiting.remove(pane);
    m_form.RemovePane(pane);
    ShowRow();
}

void PaneTabs::CloseFront() {
    BrowserPane* front = m_deck.Front();
    if (m_form.FurtherPanes().contains(front))
        Close(front);
    else
        m_deck.ShowLastingStatus(tr("This page stays; only further tabs are closed"));
}

void PaneTabs::Walk(int by) {
    const auto count = static_cast<int>(Row().size());
    ShowAt((FrontIndex() + by + count) % count);
}

void PaneTabs::ShowAt(int index) {
    m_deck.Show(Row().value(index, m_form.Web));
}

// The broker page has a tab once it has shown something.
QList<BrowserPane*> PaneTabs::Row() const {
    QList<BrowserPane*> row{m_form.Web};
    const BrowserPane* second = m_form.WebB;
    if (!second->isHidden() || m_waiting.contains(second) || second->Busy() ||
        !second->LocationURL().isEmpty())
        row << m_form.WebB;
    return row + m_form.FurtherPanes();
}

int PaneTabs::FrontIndex() const {
    return static_cast<int>(std::max<qsizetype>(0, Row().indexOf(m_deck.Front())));
}

QString PaneTabs::CaptionOf(const BrowserPane* pane) const {
    if (const auto waiting = m_waiting.constFind(pane); waiting != m_waiting.cend())
        return waiting->caption.isEmpty() ? waiting->address : waiting->caption;
    const QString location = pane->LocationURL();
    // Of a page in the program's folder the name says enough.
    const QString place =
        QDir::isAbsolutePath(location) ? QFileInfo(location).fileName() : location;
    for (const QString& text : {pane->Title(), place})
        if (!text.isEmpty())
            return text;
    return pane->accessibleName();
}

QList<TabPage> PaneTabs::Pages() const {
    QList<TabPage> pages;
    for (const BrowserPane* pane : m_form.FurtherPanes())
        if (IsKept(pane))
            pages << PageOf(pane);
    return pages;
}

// Sources lie in memory.
bool PaneTabs::IsKept(const BrowserPane* pane) const {
    const QString address = PageOf(pane).address;
    return !address.isEmpty() && !PortalAddress::IsSource(QUrl(address));
}

int PaneTabs::KeptFrontIndex() const {
    int index = 0;
    for (BrowserPane* pane : Row()) {
        const bool isInRow = !m_form.FurtherPanes().contains(pane) || IsKept(pane);
        if (pane == m_deck.Front())
            return isInRow ? index : 0;
        index += isInRow ? 1 : 0;
    }
    return 0;
}

TabPage PaneTabs::PageOf(const BrowserPane* pane) const {
    return m_waiting.value(pane, {pane->LocationURL(), pane->Title()});
}

// Who brings a pane to the front often loads a page into it right after.
void PaneTabs::OnFront(BrowserPane* pane) {
    if (m_waiting.contains(pane))
        QMetaObject::invokeMethod(
            pane, [this, pane] { LoadWaiting(pane); }, Qt::QueuedConnection);
    ShowRow();
}

void PaneTabs::LoadWaiting(BrowserPane* pane) {
    const TabPage waiting = m_waiting.take(pane);
    if (!waiting.address.isEmpty() && !pane->Busy() && pane->LocationURL().isEmpty())
        pane->Navigate(waiting.address);
    ShowRow();
}

void PaneTabs::ShowRow() {
    const bool isShown = !m_form.FurtherPanes().isEmpty();
    if (isShown) {
        QList<TabRow::Tab> tabs;
        for (BrowserPane* pane : Row())
            tabs << TabRow::Tab{CaptionOf(pane), m_form.FurtherPanes().contains(pane)};
        m_form.tabRow->Show(tabs, FrontIndex());
    }
    m_form.ShowTabs(isShown);
}

} // namespace tallowmere
