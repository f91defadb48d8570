#include "app/custom/PageCells.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/links/PaneDeck.h"
#include "core/custom/multi_link.h"
#include "core/custom/page_names.h"
#include "core/text/files.h"

#include <QEvent>

namespace tallowmere {

PageCells::PageCells(BrowserPane& pane, MultiLinks& multiLinks, const SettingsStore& settings,
                     const SiteTable& sites, Prompts& prompts,
                     const std::filesystem::path& programFolder, PaneDeck& panes,
                     EngineProfile& profile)
    : QObject(&pane), m_pane(pane), m_multiLinks(multiLinks), m_settings(settings), m_sites(sites),
      m_prompts(prompts), m_programFolder(programFolder), m_panes(panes), m_profile(profile) {
    connect(&pane, &BrowserPane::DocumentComplete, this, &PageCells::Complete);
    connect(&pane, &BrowserPane::ProgressChange, this,
            [this](int, int maximum) { Progress(maximum); });
    pane.installEventFilter(this);
}

// Whatever begins to load in the pane takes the place of the cells.
void PageCells::Progress(int maximum) {
    const bool isLoading = maximum > 0;
    if (isLoading && !m_isLoading) {
        Remove();
        m_isLeaving = IsShown();
        m_isHeld = m_multiLinks.LastShown().columns > 0;
        m_pane.HoldFramesOf(m_isHeld ? m_profile.UrlOf(DisplayPage()) : QUrl());
    } else if (isLoading && !m_header && !m_isLeaving && IsShown()) {
        ShowHeader();
    }
    m_isLoading = isLoading;
}

void PageCells::Complete(bool isLoaded) {
    if (!isLoaded || !IsShown())
        return;
    if (!m_header)
        ShowHeader();
    if (m_shown.columns == 0)
        m_pane.WhenFramesAreEmpty([guard = QPointer(this)] {
            if (guard && !guard->m_grid)
                guard->ShowGrid(1);
        });
}

bool PageCells::IsShown() const {
    return m_pane.LocationURL() == DisplayPage();
}

QString PageCells::DisplayPage() const {
    return PathToQt(m_programFolder / std::string(kDisplayPage));
}

void PageCells::ShowHeader() {
    m_shown = m_multiLinks.LastShown();
    m_addresses.clear();
    QList<MultiLinkHeader::Page> pages;
    const PageNames names(m_sites, m_settings);
    for (const std::string& address :
         RecordedAddresses(ReadWholeFile(m_programFolder / std::string(kDisplayPage)))) {
        m_addresses << ToQt(address);
        pages << MultiLinkHeader::Page{ToQt(names.Of(address)), ToQt(address)};
    }
    if (pages.isEmpty())
        return;
    m_header = new MultiLinkHeader(pages, &m_pane);
    m_header->SetColumns(m_shown.columns);
    connect(m_header, &MultiLinkHeader::PageWanted, this, &PageCells::GoTo);
    connect(m_header, &MultiLinkHeader::ColumnsWanted, this, &PageCells::SetColumns);
    m_pane.SetHeader(m_header);
    // All frames are of one height.
    m_pane.OnScroll(m_header, [this](double above) {
        if (!m_grid)
            m_header->SetCurrent(std::min(static_cast<int>(m_addresses.size()) - 1,
                                          qRound(above * static_cast<double>(m_addresses.size()))));
    });
    if (m_shown.columns > 0)
        ShowGrid(m_shown.columns);
}

void PageCells::ShowGrid(int columns) {
    if (m_grid) {
        m_grid->SetColumns(columns);
        return;
    }
    const auto makePane = [this](QWidget* parent) {
        auto* pane = new BrowserPane(m_profile, m_prompts, parent);
        connect(pane, &BrowserPane::StatusTextChange, &m_panes, &PaneDeck::ShowStatus);
        return pane;
    };
    m_grid = new CellGrid(m_addresses, columns, makePane, &m_pane);
    connect(m_grid, &CellGrid::AloneWanted, &m_pane, &BrowserPane::Navigate);
    connect(m_grid, &CellGrid::Scrolled, m_header, &MultiLinkHeader::SetCurrent);
    Place();
    m_grid->show();
    m_grid->raise();
}

void PageCells::SetColumns(int columns) {
    m_shown.columns = columns;
    m_multiLinks.KeepLayout(m_shown);
    if (columns > 0) {
        ShowGrid(columns);
    } else if (m_isHeld) {
        m_pane.Refresh();
    } else {
        RemoveGrid();
    }
}

void PageCells::GoTo(int page) {
    if (m_grid)
        m_grid->ShowCell(page);
    else
        m_pane.ShowPart(page);
}

// The line of pages stays free.
void PageCells::Place() {
    if (m_grid)
        m_grid->setGeometry(m_pane.rect().adjusted(0, m_header->sizeHint().height(), 0, 0));
}

// The cells may go while one of their own buttons is being clicked.
void PageCells::RemoveGrid() {
    if (m_grid) {
        m_grid->hide();
        m_grid->deleteLater();
    }
    m_grid = nullptr;
}

void PageCells::Remove() {
    RemoveGrid();
    if (m_header) {
        m_header->hide();
        m_header->deleteLater();
    }
    m_header = nullptr;
}

bool PageCells::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        Place();
    return QObject::eventFilter(watched, event);
}

} // namespace tallowmere
