#include "app/links/PaneDeck.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/RecordingState.h"
#include "app/links/SeparateBrowser.h"
#include "core/links/before_navigate.h"
#include "core/sites/site_table.h"
#include "core/text/files.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace tallowmere {

PaneDeck::PaneDeck(frmMain& form, RecordingState& recording, const SiteTable& sites,
                   const std::filesystem::path& programFolder, SeparateBrowser& outside)
    : QObject(&form), m_form(form), m_recording(recording), m_sites(sites),
      m_programFolder(programFolder), m_outside(outside) {
    connect(form.Web, &BrowserPane::BeforeNavigate2, this, &PaneDeck::BeforeFirst);
    connect(form.WebB, &BrowserPane::BeforeNavigate2, this, &PaneDeck::BeforeEither);
    for (BrowserPane* pane : {form.Web, form.WebB}) {
        Offer(*pane);
        connect(pane, &BrowserPane::StatusTextChange, this,
                [this, pane](const QString& text) { OnPaneStatus(*pane, text); });
        connect(pane, &BrowserPane::ProgressChange, this, &PaneDeck::ShowProgress);
    }
    form.WebTick->SetNewWindowTarget(form.Web);
    const auto front = [this](QAction* action, auto method) {
        connect(action, &QAction::triggered, this, [this, method] { (Front()->*method)(); });
    };
    front(form.menus->findInPage, &BrowserPane::Find);
    front(form.menus->At("findNext"), &BrowserPane::FindNext);
    front(form.menus->At("findPrevious"), &BrowserPane::FindPrevious);
    front(form.menus->zoomIn, &BrowserPane::ZoomIn);
    front(form.menus->zoomOut, &BrowserPane::ZoomOut);
    front(form.menus->zoomReset, &BrowserPane::ZoomReset);
    connect(form.menus->copyBuilt, &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(Front()->LocationURL()); });
}

// What the page of each pane may ask for.
void PaneDeck::Offer(BrowserPane& pane) {
    pane.OfferWindows();
    connect(&pane, &BrowserPane::PaneWanted, this,
            [this, &pane](const QString& address, bool isInFront) {
                OnPaneWanted(pane, address, isInFront);
            });
    connect(&pane, &BrowserPane::FillWanted, this,
            [this, &pane](const QString& host, bool* isGranted) {
                Q_EMIT FillWanted(&pane, host, isGranted);
            });
    connect(&pane, &BrowserPane::FillOver, this, [this, &pane] { Q_EMIT FillOver(&pane); });
}

void PaneDeck::Adopt(BrowserPane& pane) {
    Offer(pane);
    connect(&pane, &BrowserPane::BeforeNavigate2, this,
            [this, &pane](const QString& address, bool* cancel) {
                BeforeFurther(pane, address, cancel);
            });
    // What a page behind another one does is of no interest.
    connect(&pane, &BrowserPane::StatusTextChange, this, [this, &pane](const QString& text) {
        if (Front() == &pane)
            OnPaneStatus(pane, text);
    });
    connect(&pane, &BrowserPane::ProgressChange, this, [this, &pane](int progress, int maximum) {
        if (Front() == &pane)
            ShowProgress(progress, maximum);
    });
    Q_EMIT Adopted(pane);
}

// While pages are recorded a window is one of them.
void PaneDeck::OnPaneWanted(BrowserPane& pane, const QString& address, bool isInFront) {
    if (m_recording.templateMode)
        pane.Navigate(address);
    else
        Q_EMIT TabWanted(address, isInFront);
}

void PaneDeck::OpenNext(PagePlace place) {
    m_next = IsTab(place) && m_recording.templateMode ? PagePlace::Pane : place;
}

bool PaneDeck::OpenInTab(const QString& address) {
    if (!IsTab(m_next))
        return false;
    Q_EMIT TabWanted(address, std::exchange(m_next, PagePlace::Pane) == PagePlace::FrontTab);
    return true;
}

void PaneDeck::Navigate(const QString& address) {
    if (OpenInTab(address))
        return;
    if (!OpensNextOutside())
        ShowFirst();
    m_form.Web->Navigate(address);
}

void PaneDeck::NavigateIn(PagePlace place, const QString& address) {
    OpenNext(place);
    Navigate(address);
    OpenNext(PagePlace::Pane);
}

void PaneDeck::NavigateSecond(const QString& address) {
    if (OpenInTab(address))
        return;
    if (!OpensNextOutside())
        ShowSecond();
    m_form.WebB->Navigate(address);
}

void PaneDeck::OpenStartPage(const QString& stored, const QString& usual) {
    if (stored.isEmpty()) {
        m_form.Web->Navigate(usual);
    } else if (stored.startsWith(u'B')) {
        ShowSecond();
        m_form.WebB->Navigate(stored.mid(1));
    } else {
        ShowFirst();
        m_form.Web->Navigate(stored.mid(1));
    }
}

void PaneDeck::ShowGenerated(std::string_view name, std::string_view page) {
    const std::filesystem::path path = m_programFolder / name;
    WriteWholeFile(path, page);
    Navigate(PathToQt(path));
}

void PaneDeck::ShowFirst() {
    Show(m_form.Web);
}

void PaneDeck::ShowSecond() {
    Show(m_form.WebB);
}

void PaneDeck::Show(BrowserPane* pane) {
    const bool isAnother = Front() != pane;
    pane->show();
    for (BrowserPane* other : m_form.Panes())
        if (other != pane)
            other->hide();
    if (isAnother && !m_form.FurtherPanes().isEmpty()) {
        OnPaneStatus(*pane, pane->LocationURL());
        ShowProgress(0, 0);
    }
    Q_EMIT FrontChanged(pane);
}

BrowserPane* PaneDeck::Front() const {
    for (BrowserPane* pane : m_form.Panes())
        if (!pane->isHidden())
            return pane;
    return m_form.Web;
}

void PaneDeck::OnPaneStatus(const BrowserPane& pane, const QString& text) {
    if (!m_isStatusLasting || text != pane.LocationURL())
        ShowStatus(text);
}

void PaneDeck::ShowLastingStatus(const QString& text) {
    ShowStatus(text);
    m_isStatusLasting = true;
}

void PaneDeck::ShowStatus(const QString& text) {
    m_isStatusLasting = false;
    m_form.WebStatus->setText(LineStart(text));
    m_form.WebStatus->setAccessibleName(text);
}

void PaneDeck::BeforeFurther(BrowserPane& pane, const QString& address, bool* cancel) {
    if (const auto rewritten = RewriteStockLookup(FromQt(address), m_sites)) {
        *cancel = true;
        pane.Navigate(ToQt(*rewritten));
        return;
    }
    BeforeEither(address, cancel);
}

void PaneDeck::BeforeFirst(const QString& address, bool* cancel) {
    if (const auto rewritten = RewriteStockLookup(FromQt(address), m_sites)) {
        *cancel = true;
        if (!m_form.WebB->isHidden())
            ShowFirst();
        m_form.Web->Navigate(ToQt(*rewritten));
        return;
    }
    if (m_recording.templateMode) {
        m_recording.multiLinkPage += ToQt(MultiLinkFrame(FromQt(address)));
        Q_EMIT Recorded();
        *cancel = true;
    }
    BeforeEither(address, cancel);
}

void PaneDeck::BeforeEither(const QString& address, bool* cancel) {
    if (!m_recording.templateMode)
        Q_EMIT BrowsingStarts();
    if (OpensNextOutside()) {
        m_next = PagePlace::Pane;
        *cancel = true;
        m_outside.Open(address);
    }
}

void PaneDeck::ShowProgress(int progress, int maximum) {
    const bool drawn = !m_form.lblStat->isHidden() && progress >= 1 && maximum >= 1;
    const int width =
        drawn ? static_cast<int>(static_cast<qint64>(m_form.Web->width()) * progress / maximum) : 0;
    m_form.lblStat->resize(width, m_form.lblStat->height());
}

} // namespace tallowmere
