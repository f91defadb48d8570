#include "app/links/FinderAddresses.h"

#include "app/base/QtText.h"
#include "app/links/PaneDeck.h"
#include "core/shell/navigate_list.h"

#include <unordered_set>

namespace tallowmere {

namespace {

constexpr std::string_view kKey = "address ";

FinderItem ItemOf(std::string address) {
    std::string key = std::string(kKey) + address;
    return {FinderKind::Address, std::move(address), "", std::move(key), {}, 0};
}

} // namespace

FinderAddresses::FinderAddresses(const SettingsStore& settings, const WebAccess& access,
                                 PaneDeck& panes)
    : m_settings(settings), m_access(access), m_panes(panes) {}

// The list holds an address as often as it was entered.
void FinderAddresses::Offer(std::vector<FinderItem>& items) {
    std::unordered_set<std::string> seen;
    for (const std::string& entry : ReadNavigateEntries(m_settings))
        if (seen.insert(entry).second)
            items.push_back(ItemOf(entry));
}

std::optional<FinderItem> FinderAddresses::Read(std::string_view line) {
    std::string address = AddressIn(line);
    return address.empty() ? std::nullopt : std::optional(ItemOf(std::move(address)));
}

QString FinderAddresses::Detail(const FinderItem& item, const QString&) {
    return HostOfBuilt(ToQt(item.key.substr(kKey.size())), m_access);
}

// The text of an item may have lost characters that are not seen.
void FinderAddresses::Open(const FinderItem& item, PagePlace place, const QString&) {
    m_panes.NavigateIn(place, ToQt(item.key.substr(kKey.size())));
}

} // namespace tallowmere
