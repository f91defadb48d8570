#include "app/links/ServerLists.h"

#include "app/base/QtText.h"
#include "app/base/TransferControl.h"
#include "app/links/PaneDeck.h"
#include "app/links/SitePopups.h"
#include "core/links/web_address.h"
#include "core/sites/site_table.h"

#include <QMenu>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestCaption = 80;

QString Books() {
    return u"mnuBook"_s;
}
QString NewSites() {
    return u"mnuNewSite"_s;
}

QString Shortened(const QString& caption) {
    return caption.size() <= kLongestCaption ? caption
                                             : caption.first(kLongestCaption - 3) + u"..."_s;
}

} // namespace

ServerLists::ServerLists(const SiteTable& sites, PaneDeck& panes, SitePopups& popups,
                         TransferControl& tmNet, QObject* parent)
    : QObject(parent), m_sites(sites), m_panes(panes), m_tmNet(tmNet) {
    connect(&popups, &SitePopups::RunTimeArrayBuilt, this,
            [this](const QString& array, QMenu* menu) {
                List& list = m_lists[array];
                list.menu = menu;
                // One item of the menu of new sites stands for all of them until they are there.
                if (array == NewSites())
                    list.items = menu->actions();
                Fill(array);
            });
}

void ServerLists::FetchAll() {
    const QPointer<ServerLists> alive(this);
    GetNewSites();
    if (alive)
        GetBooks();
}

void ServerLists::GetBooks() {
    const QPointer<ServerLists> alive(this);
    const std::string page = Fetch(kBookListPath);
    if (alive)
        Take(Books(), ReadBookList(page));
}

void ServerLists::GetNewSites() {
    const QPointer<ServerLists> alive(this);
    const std::string page = Fetch(kNewSitesPath);
    if (alive)
        Take(NewSites(), ReadNewSites(page));
}

std::string ServerLists::Fetch(std::string_view path) {
    if (m_tmNet.IsBusy())
        return {};
    const QPointer<TransferControl> alive(&m_tmNet);
    const QByteArray page = m_tmNet.OpenURL(ToQt(m_sites.Address("maker", path)));
    // A server's page about its error is no list, though hyphens and anchors may be on it.
    return !alive || m_tmNet.WasRefused() ? std::string() : page.toStdString();
}

void ServerLists::Take(const QString& array, std::vector<ServerEntry> entries) {
    if (entries.empty())
        return;
    m_lists[array].entries = std::move(entries);
    Fill(array);
}

// Puts the entries into the menu, if it was wanted already; otherwise that happens when it is.
void ServerLists::Fill(const QString& array) {
    List& list = m_lists[array];
    if (!list.menu || list.entries.empty())
        return;
    qDeleteAll(std::exchange(list.items, {}));
    const std::size_t shown = std::min(list.entries.size(), kMostShown);
    for (std::size_t i = 0; i < shown; ++i) {
        const ServerEntry& entry = list.entries[i];
        QAction* item = list.menu->addAction(MenuCaption(Shortened(ToQt(entry.caption))));
        item->setObjectName(array + QString::number(entry.index));
        connect(item, &QAction::triggered, this,
                [this, array, target = entry.target] { Choose(array, target); });
        list.items << item;
    }
    if (shown < list.entries.size()) {
        list.items << list.menu->addAction(u"... and %L1 more"_s.arg(list.entries.size() - shown));
        list.items.last()->setEnabled(false);
    }
}

void ServerLists::Choose(const QString& array, const std::string& target) {
    if (array == Books())
        m_panes.Navigate(ToQt(BookAddress(target, m_sites)));
    else if (IsWebAddress(target))
        m_panes.Navigate(ToQt(target));
    else
        m_panes.ShowStatus(u"This entry has no web address: "_s + Shortened(ToQt(target)));
}

} // namespace tallowmere
