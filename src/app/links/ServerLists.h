#pragma once

#include "core/links/server_lists.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <string>
#include <vector>

class QAction;
class QMenu;

namespace tallowmere {

class PaneDeck;
class SitePopups;
class SiteTable;
class TransferControl;

/// The menus of books and new sites that the maker's server fills. The pages are fetched while the
/// window is in use; without them the menus keep the items that they have. A list that is fetched
/// again takes the place of the one before.
class ServerLists : public QObject {
    Q_OBJECT
public:
    /// So many entries of a list are shown; a last line says how many more there are.
    static constexpr std::size_t kMostShown = 500;

    ServerLists(const SiteTable& sites, PaneDeck& panes, SitePopups& popups, TransferControl& tmNet,
                QObject* parent);

    /// Fetches both lists, one after the other.
    void FetchAll();

    /// Fetches the list of books and fills `mnuBook`.
    void GetBooks();

    /// Fetches the list of new sites and fills `mnuNewSite`.
    void GetNewSites();

private:
    struct List {
        std::vector<ServerEntry> entries;
        QPointer<QMenu> menu;
        QList<QAction*> items; ///< those that stand for the entries, or for their absence
    };

    std::string Fetch(std::string_view path);
    void Take(const QString& array, std::vector<ServerEntry> entries);
    void Fill(const QString& array);
    void Choose(const QString& array, const std::string& target);

    const SiteTable& m_sites;
    PaneDeck& m_panes;
    TransferControl& m_tmNet;
    QHash<QString, List> m_lists;
};

} // namespace tallowmere
