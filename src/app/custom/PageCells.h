#pragma once

#include "app/custom/CellGrid.h"
#include "app/custom/MultiLinks.h"
#include "app/forms/MultiLinkHeader.h"

#include <QObject>
#include <QPointer>

#include <filesystem>

namespace tallowmere {

class EngineProfile;
class PaneDeck;
class Prompts;
class SettingsStore;
class SiteTable;

/// What a pane has beside the page of a multi-link: the line of its pages above it, and the pages
/// in cells of their own over it, when they are laid out in columns or a frame stays empty: many
/// sites refuse to be framed. As main pages they cannot refuse, and logins hold in them.
class PageCells : public QObject {
    Q_OBJECT
public:
    PageCells(BrowserPane& pane, MultiLinks& multiLinks, const SettingsStore& settings,
              const SiteTable& sites, Prompts& prompts, const std::filesystem::path& programFolder,
              PaneDeck& panes, EngineProfile& profile);

    /// The line of pages while a multi-link is shown.
    MultiLinkHeader* Header() const { return m_header; }
    /// The cells while they are shown.
    CellGrid* Grid() const { return m_grid; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Progress(int maximum);
    void Complete(bool isLoaded);
    bool IsShown() const;
    QString DisplayPage() const;
    void ShowHeader();
    void ShowGrid(int columns);
    void SetColumns(int columns);
    void GoTo(int page);
    void Place();
    void RemoveGrid();
    void Remove();

    BrowserPane& m_pane;
    MultiLinks& m_multiLinks;
    const SettingsStore& m_settings;
    const SiteTable& m_sites;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    PaneDeck& m_panes;
    EngineProfile& m_profile;
    ShownMultiLink m_shown;
    QStringList m_addresses;
    QPointer<MultiLinkHeader> m_header;
    QPointer<CellGrid> m_grid;
    bool m_isLoading = false;
    bool m_isLeaving = false; ///< a load began on the page of multi-links
    bool m_isHeld = false;    ///< the frames of the page below the cells were left empty
};

} // namespace tallowmere
