#include "links/ServerLists.h"

#include "links/PaneDeck.h"
#include "links/SitePopups.h"
#include "links/web_address.h"
#include "shell/QtText.h"
#include "shell/TransferControl.h"

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

QString NameOf(const QString& array, int index) {
    return array + QString::number(index);
}

QString Shortened(const QString& caption) {
    return caption.size() <= kLongestCaption ? caption
                                             : caption.first(kLongestCaption - 3) + u"..."_s;
}

} // namespace

ServerLists::ServerLists(const Services& services, PaneDeck& panes, SitePopups& popups,
                         TransferControl& tmNet, QObject* parent)
    : QObject(parent), m_services(services), m_panes(panes), m_tmNet(tmNet) {
    connect(&popups, &SitePopups::RunTimeArrayBuilt, this,
            [this](const QString& array, QMenu* menu) {
                m_lists[array].menu = menu;
                Fill(array);
            });
}

void ServerLists::GetBooks() {
    const QPointer<ServerLists> alive(this);
    const std::string page = Fetch(kBookListPath);
    if (!alive)
        return;
    m_lists[Books()].entries = ReadBookList(page);
    Fill(Books());
}

void ServerLists::GetNewSites() {
    const QPointer<ServerLists> alive(this);
    const std::string page = Fetch(kNewSitesPath);
    if (!alive)
        return;
    m_lists[NewSites()].entries = ReadNewSites(page);
    Fill(NewSites());
}

std::string ServerLists::Fetch(std::string_view path) {
    if (m_tmNet.IsBusy())
        return {};
    return m_tmNet.OpenURL(ToQt(m_services.sites.Address("maker", path))).toStdString();
}

// Puts the entries into the menu, if it was wanted already; otherwise that happens when it is.
void ServerLists::Fill(const QString& array) {
    const List& list = m_lists[array];
    if (!list.menu || list.entries.empty())
        return;
    const std::size_t shown = std::min(list.entries.size(), kMostShown);
    for (std::size_t i = 0; i < shown; ++i) {
        const ServerEntry& entry = list.entries[i];
        // The first new site takes the place of the item that stood for all of them.
        QAction* item =
            i == 0 ? list.menu->findChild<QAction*>(NameOf(array, entry.index)) : nullptr;
        if (!item)
            item = list.menu->addAction(QString());
        item->setObjectName(NameOf(array, entry.index));
        item->setText(MenuCaption(Shortened(ToQt(entry.caption))));
        connect(item, &QAction::triggered, this,
                [this, array, target = entry.target] { Choose(array, target); });
    }
    if (shown < list.entries.size())
        list.menu->addAction(u"... and %L1 more"_s.arg(list.entries.size() - shown))
            ->setEnabled(false);
}

void ServerLists::Choose(const QString& array, const std::string& target) {
    if (array == Books())
        m_panes.Navigate(ToQt(BookAddress(target, m_services.sites)));
    else if (IsWebAddress(target))
        m_panes.Navigate(ToQt(target));
    else
        m_panes.ShowStatus(u"This entry has no web address: "_s + Shortened(ToQt(target)));
}

} // namespace tallowmere
